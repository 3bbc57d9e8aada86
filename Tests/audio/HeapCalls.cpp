// SPDX-License-Identifier: MIT
#include "HeapCalls.h"

#include <cstdlib>

namespace {

thread_local std::size_t calls = 0;

} // namespace

std::size_t sounds::heapCalls() noexcept
{
    return calls;
}

// The sanitizers replace these themselves.
#if defined(__has_feature)
#define ZARN_HAS_FEATURE(feature) __has_feature(feature)
#else
#define ZARN_HAS_FEATURE(feature) 0
#endif
#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)          \
    && !ZARN_HAS_FEATURE(address_sanitizer) && !ZARN_HAS_FEATURE(thread_sanitizer)

// glibc's own, under the names that it has for those who replace the usual ones. `new` comes here
// too, as do libraries in C.
extern "C" {

void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *memory, std::size_t size);
void __libc_free(void *memory);

void *malloc(std::size_t size)
{
    ++calls;
    return __libc_malloc(size);
}

void *calloc(std::size_t count, std::size_t size)
{
    ++calls;
    return __libc_calloc(count, size);
}

void *realloc(void *memory, std::size_t size)
{
    ++calls;
    return __libc_realloc(memory, size);
}

void free(void *memory)
{
    ++calls;
    __libc_free(memory);
}

} // extern "C"

#endif
