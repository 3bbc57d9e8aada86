// SPDX-License-Identifier: MIT
// Counts every allocation of the program. For one source file of a program: it replaces the
// operators new and delete.
#pragma once

#include <atomic>
#include <cstdlib>
#include <new>

namespace bench {

inline std::atomic<unsigned long> allocationCount{0};

} // namespace bench

void *operator new(std::size_t size)
{
    ++bench::allocationCount;
    if (void *const memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}
