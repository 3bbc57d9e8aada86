// SPDX-License-Identifier: MIT
#include <streams/MemoryHeap.h>

#include <new>

namespace streams {

MemoryHeap::MemoryHeap(std::size_t budget, std::pmr::memory_resource *upstream)
    : _upstream(upstream), _budget(budget)
{
}

MemoryHeap::~MemoryHeap() = default;

bool MemoryHeap::reserve(std::size_t bytes) noexcept
{
    auto before = _used.load(std::memory_order_relaxed);
    do {
        if (bytes > _budget - before)
            return false;
    } while (!_used.compare_exchange_weak(before, before + bytes, std::memory_order_relaxed));
    auto highest = _peak.load(std::memory_order_relaxed);
    while (highest < before + bytes
           && !_peak.compare_exchange_weak(highest, before + bytes, std::memory_order_relaxed)) { }
    return true;
}

void *MemoryHeap::do_allocate(std::size_t bytes, std::size_t alignment)
{
    if (!reserve(bytes)) {
        _refusals.fetch_add(1, std::memory_order_relaxed);
        throw std::bad_alloc();
    }
    try {
        void *const memory = _upstream->allocate(bytes, alignment);
        _allocations.fetch_add(1, std::memory_order_relaxed);
        return memory;
    } catch (...) {
        _used.fetch_sub(bytes, std::memory_order_relaxed);
        _refusals.fetch_add(1, std::memory_order_relaxed);
        throw;
    }
}

void MemoryHeap::do_deallocate(void *memory, std::size_t bytes, std::size_t alignment)
{
    _upstream->deallocate(memory, bytes, alignment);
    _used.fetch_sub(bytes, std::memory_order_relaxed);
}

bool MemoryHeap::do_is_equal(const std::pmr::memory_resource &other) const noexcept
{
    return this == &other;
}

} // namespace streams
