#ifndef SANITIZERS_H
#define SANITIZERS_H

// HAS_SANITIZER: the program runs with AddressSanitizer or ThreadSanitizer, which have a memory of their own. The build
// defines it, as no compiler knows it of a program that is only linked with one.

#ifdef HAS_SANITIZER
#include <cstddef>

extern "C" size_t __sanitizer_get_current_allocated_bytes();
extern "C" void __sanitizer_set_death_callback(void (*callback)());
#endif

#endif
