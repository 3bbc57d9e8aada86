// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <utility>

namespace zarn {

/// Memory for the many nodes of a tree that a reader makes at once: they stand close together, and
/// are made without asking the heap for each. A block goes back to the heap when the last node in
/// it is destroyed, on whatever thread, and also long behind the `NodeBlocks` that made it.
///
/// Sanitizers watch each node by itself: for them every node is made by `std::make_shared`.
class NodeBlocks {
public:
    NodeBlocks() noexcept = default;
    NodeBlocks(const NodeBlocks &) = delete;
    NodeBlocks &operator=(const NodeBlocks &) = delete;
    ~NodeBlocks() { closeBlock(); }

    template <class Node, class... Arguments>
    std::shared_ptr<Node> make(Arguments &&...arguments)
    {
        static_assert(alignof(Node) <= alignment);
        if constexpr (isUsed) {
            if (_block == nullptr || _block->rest() < sizeof(Node) + mostBeside)
                openBlock();
            return std::allocate_shared<Node>(Allocator<Node>(_block),
                                              std::forward<Arguments>(arguments)...);
        } else {
            return std::make_shared<Node>(std::forward<Arguments>(arguments)...);
        }
    }

private:
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    static constexpr bool isUsed = false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
    static constexpr bool isUsed = false;
#else
    static constexpr bool isUsed = true;
#endif
#else
    static constexpr bool isUsed = true;
#endif

    static constexpr std::size_t blockSize = std::size_t(1) << 16;
    static constexpr std::size_t alignment = alignof(std::max_align_t);
    static constexpr std::size_t mostBeside = 64; ///< the counts of a shared pointer and the like

    /// Owned by its nodes, and by those who fill it.
    class Block {
    public:
        Block() noexcept { } // the bytes stay as they are
        std::size_t rest() const noexcept { return blockSize - _used; }
        void *take(std::size_t bytes);
        void giveBack() noexcept { leave(1); }

        /// No more nodes come.
        void close() noexcept { leave(open - _made); }

    private:
        /// More than a block has room for: the share of those who fill it.
        static constexpr std::size_t open = blockSize;

        void leave(std::size_t count) noexcept
        {
            if (_left.fetch_sub(count, std::memory_order_acq_rel) == count)
                const std::unique_ptr<Block> last(this);
        }

        std::atomic<std::size_t> _left = open; ///< nodes that live, as soon as the block is closed
        std::size_t _made = 0;
        std::size_t _used = 0;
        alignas(alignment) std::byte _bytes[blockSize];
    };

    template <class T>
    class Allocator {
    public:
        using value_type = T;

        explicit Allocator(Block *block) noexcept : _block(block) { }
        template <class Other>
        Allocator(const Allocator<Other> &other) noexcept : _block(other.block())
        {
        }

        Block *block() const noexcept { return _block; }
        T *allocate(std::size_t count) { return static_cast<T *>(_block->take(count * sizeof(T))); }
        void deallocate(T *, std::size_t) noexcept { _block->giveBack(); }

        friend bool operator==(const Allocator &left, const Allocator &right) noexcept
        {
            return left._block == right._block;
        }
        friend bool operator!=(const Allocator &left, const Allocator &right) noexcept
        {
            return !(left == right);
        }

    private:
        Block *_block;
    };

    void openBlock();
    void closeBlock() noexcept;

    Block *_block = nullptr; ///< the one that is being filled
};

} // namespace zarn
