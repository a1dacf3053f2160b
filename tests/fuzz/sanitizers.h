#ifndef FUZZ_SANITIZERS_H
#define FUZZ_SANITIZERS_H

#include <cstddef>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define HAS_SANITIZER
#endif
#endif
#ifdef __SANITIZE_ADDRESS__
#define HAS_SANITIZER
#endif

#ifdef HAS_SANITIZER
extern "C" size_t __sanitizer_get_current_allocated_bytes();
extern "C" void __sanitizer_set_death_callback(void (*callback)());
#endif

#endif
