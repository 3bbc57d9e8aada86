// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <atomic>
#include <memory>
#include <mutex>

namespace zarn {

/// The door to what a parent does with its children.
struct ParentNodeAccess {
    /// Taken while a node gives its children their parent; that is seldom and short.
    ZARNCORE_EXPORT static std::mutex &linkingMutex() noexcept;

    template <class Node>
    static void linkOrphans(Node &node)
    {
        node.linkOrphans(node.weak_from_this());
    }
};

/// A tree node with children, which sees to it that whoever asks for a child gets one that knows
/// its parent.
///
/// A node cannot be anyone's parent before a shared pointer holds it, so children that its
/// constructor makes or copies are orphans at first. They are linked when the node is asked for
/// them; any number of threads may be the first to ask. The children of a node that no shared
/// pointer holds stay orphans.
template <class Node>
class ParentNode {
protected:
    ParentNode() noexcept = default;
    ParentNode(const ParentNode &) noexcept : _hasOrphans(true) { }
    ParentNode &operator=(const ParentNode &) noexcept
    {
        markOrphans();
        return *this;
    }
    ~ParentNode() = default;

    /// To be called before a child is handed out.
    void linkChildren() const
    {
        if (_hasOrphans.load(std::memory_order_acquire))
            linkNow();
    }

    bool hasOrphans() const noexcept { return _hasOrphans.load(std::memory_order_acquire); }
    void markOrphans() noexcept { _hasOrphans.store(true, std::memory_order_relaxed); }

    /// The parent to give to children that are put in.
    std::weak_ptr<Node> asParent() noexcept
    {
        auto parent = static_cast<Node &>(*this).weak_from_this();
        if (parent.expired())
            markOrphans();
        return parent;
    }

private:
    friend struct ChildLinkAccess;

    /// Out of the way of those who walk through the tree.
    [[gnu::cold, gnu::noinline]] void linkNow() const
    {
        // The children are part of the node, and theirs is a change that nobody can see.
        auto &node = const_cast<Node &>(static_cast<const Node &>(*this));
        if (node.weak_from_this().expired())
            return;
        const std::lock_guard<std::mutex> lock(ParentNodeAccess::linkingMutex());
        if (!_hasOrphans.load(std::memory_order_relaxed))
            return;
        ParentNodeAccess::linkOrphans(node);
        _hasOrphans.store(false, std::memory_order_release);
    }

    mutable std::atomic<bool> _hasOrphans{false};
};

} // namespace zarn
