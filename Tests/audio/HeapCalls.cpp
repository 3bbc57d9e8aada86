// SPDX-License-Identifier: MIT
#include "HeapCalls.h"

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <dlfcn.h>
#include <pthread.h>
#include <unistd.h>

namespace {

thread_local std::size_t calls = 0;
thread_local std::size_t blocking = 0;

} // namespace

std::size_t sounds::heapCalls() noexcept
{
    return calls;
}

std::size_t sounds::blockingCalls() noexcept
{
    return blocking;
}

// The sanitizers replace these themselves.
#if defined(__has_feature)
#define ZARN_HAS_FEATURE(feature) __has_feature(feature)
#else
#define ZARN_HAS_FEATURE(feature) 0
#endif
#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)          \
    && !ZARN_HAS_FEATURE(address_sanitizer) && !ZARN_HAS_FEATURE(thread_sanitizer)

bool sounds::countsCalls() noexcept
{
    return true;
}

namespace {

/// The function of that name which this program has replaced.
template <class Function>
Function *replaced(Function *&known, const char *name) noexcept
{
    if (known == nullptr)
        known = reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
    ++blocking;
    return known;
}

} // namespace

#define ZARN_COUNTED(result, name, parameters, arguments)                                          \
    result name parameters                                                                         \
    {                                                                                              \
        static result(*real) parameters = nullptr;                                                 \
        return replaced(real, #name) arguments;                                                    \
    }

// glibc's own, under the names that it has for those who replace the usual ones. `new` comes here
// too, as do libraries in C.
extern "C" {

void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *memory, std::size_t size);
void *__libc_memalign(std::size_t alignment, std::size_t size);
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

void *aligned_alloc(std::size_t alignment, std::size_t size)
{
    ++calls;
    return __libc_memalign(alignment, size);
}

void *memalign(std::size_t alignment, std::size_t size)
{
    return aligned_alloc(alignment, size);
}

int posix_memalign(void **memory, std::size_t alignment, std::size_t size)
{
    *memory = aligned_alloc(alignment, size);
    return *memory == nullptr ? ENOMEM : 0;
}

void free(void *memory)
{
    ++calls;
    __libc_free(memory);
}

ZARN_COUNTED(int, pthread_mutex_lock, (pthread_mutex_t * mutex), (mutex))
ZARN_COUNTED(int, pthread_rwlock_rdlock, (pthread_rwlock_t * lock), (lock))
ZARN_COUNTED(int, pthread_rwlock_wrlock, (pthread_rwlock_t * lock), (lock))
ZARN_COUNTED(int, pthread_cond_wait, (pthread_cond_t * condition, pthread_mutex_t *mutex),
             (condition, mutex))
ZARN_COUNTED(int, pthread_cond_timedwait,
             (pthread_cond_t * condition, pthread_mutex_t *mutex, const timespec *until),
             (condition, mutex, until))
ZARN_COUNTED(void, g_mutex_lock, (void *mutex), (mutex))
ZARN_COUNTED(void, g_rec_mutex_lock, (void *mutex), (mutex))
ZARN_COUNTED(ssize_t, read, (int file, void *bytes, size_t count), (file, bytes, count))
ZARN_COUNTED(ssize_t, write, (int file, const void *bytes, size_t count), (file, bytes, count))
ZARN_COUNTED(int, nanosleep, (const timespec *time, timespec *rest), (time, rest))
ZARN_COUNTED(int, sched_yield, (), ())

} // extern "C"

#else

bool sounds::countsCalls() noexcept
{
    return false;
}

#endif
