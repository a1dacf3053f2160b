#ifndef ALLOCATIONCOUNT_H
#define ALLOCATIONCOUNT_H

// Counts how often a program asks for memory, and what it has of it. Include it in one source only: it takes the place of
// the C library's functions. Where a sanitizer does so already there is no COUNTS_ALLOCATIONS.

#include "sanitizers.h"

#include <cstdlib>

#if defined(__GLIBC__) && !defined(HAS_SANITIZER)
#define COUNTS_ALLOCATIONS

#include <atomic>

extern "C" void *__libc_malloc(size_t size);
extern "C" void *__libc_calloc(size_t count, size_t size);
extern "C" void *__libc_realloc(void *block, size_t size);
extern "C" void __libc_free(void *block);

static std::atomic<long> s_allocations(0);
static std::atomic<long> s_frees(0);

extern "C" void *malloc(size_t size) noexcept
{
    ++s_allocations;
    return __libc_malloc(size);
}

extern "C" void *calloc(size_t count, size_t size) noexcept
{
    ++s_allocations;
    return __libc_calloc(count, size);
}

extern "C" void *realloc(void *block, size_t size) noexcept
{
    ++s_allocations;
    if (block)
        ++s_frees;
    return __libc_realloc(block, size);
}

extern "C" void free(void *block) noexcept
{
    if (block)
        ++s_frees;
    __libc_free(block);
}

/// How often the program has asked for memory so far.
inline long allocationCount()
{
    return s_allocations;
}

/// How many blocks of memory the program has, but for a constant.
inline long blockCount()
{
    return s_allocations - s_frees;
}
#endif

#endif
