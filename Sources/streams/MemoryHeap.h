// SPDX-License-Identifier: MIT
#pragma once

#include <streams/StreamsExport.h>

#include <atomic>
#include <cstddef>
#include <memory_resource>

namespace streams {

/// Memory of a fixed budget: what would go over it is refused with `std::bad_alloc`, whatever a
/// file claims to need. Counts what is taken. May be used by several threads when what it stands on
/// may.
///
///     streams::MemoryHeap heap(256 << 20);
///     std::pmr::vector<float> frames(&heap);
class STREAMS_EXPORT MemoryHeap final : public std::pmr::memory_resource {
public:
    /// A budget in bytes, on memory that lives longer than the heap.
    explicit MemoryHeap(std::size_t budget,
                        std::pmr::memory_resource *upstream = std::pmr::new_delete_resource());
    ~MemoryHeap() override;
    MemoryHeap(const MemoryHeap &) = delete;
    MemoryHeap &operator=(const MemoryHeap &) = delete;

    std::size_t budget() const noexcept { return _budget; }

    /// Bytes that are taken now, and the most that ever were.
    std::size_t used() const noexcept { return _used.load(std::memory_order_relaxed); }
    std::size_t peak() const noexcept { return _peak.load(std::memory_order_relaxed); }

    /// Bytes that could still be taken.
    std::size_t room() const noexcept { return _budget - used(); }

    /// How often something was taken, and how often it was refused.
    std::size_t allocations() const noexcept
    {
        return _allocations.load(std::memory_order_relaxed);
    }
    std::size_t refusals() const noexcept { return _refusals.load(std::memory_order_relaxed); }

private:
    void *do_allocate(std::size_t bytes, std::size_t alignment) override;
    void do_deallocate(void *memory, std::size_t bytes, std::size_t alignment) override;
    bool do_is_equal(const std::pmr::memory_resource &other) const noexcept override;

    bool reserve(std::size_t bytes) noexcept;

    std::pmr::memory_resource *const _upstream;
    const std::size_t _budget;
    std::atomic<std::size_t> _used{0};
    std::atomic<std::size_t> _peak{0};
    std::atomic<std::size_t> _allocations{0};
    std::atomic<std::size_t> _refusals{0};
};

} // namespace streams
