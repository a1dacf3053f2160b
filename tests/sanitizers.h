#ifndef SANITIZERS_H
#define SANITIZERS_H

// HAS_SANITIZER: the program is built with AddressSanitizer or ThreadSanitizer, which have a memory of their own.

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define HAS_SANITIZER
#endif
// Not instead of the above: the toolkit defines it for compilers that know no features.
#ifdef __has_feature
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define HAS_SANITIZER
#endif
#endif

#ifdef HAS_SANITIZER
extern "C" size_t __sanitizer_get_current_allocated_bytes();
extern "C" void __sanitizer_set_death_callback(void (*callback)());
#endif

#endif
