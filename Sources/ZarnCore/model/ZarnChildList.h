// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnParentNode.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace zarn {

struct ChildLinkAccess;

/// The link of a tree node to its parent. A copy of a node is a new node without a parent.
template <class Parent>
class ChildLink {
protected:
    ChildLink() noexcept = default;
    ChildLink(const ChildLink &) noexcept { }
    ChildLink &operator=(const ChildLink &) noexcept { return *this; }
    ~ChildLink() = default;

    std::shared_ptr<Parent> lockParent() const noexcept { return _parent.lock(); }
    bool hasParent() const noexcept { return !_parent.expired(); }

private:
    friend struct ChildLinkAccess;

    void setPlace(std::size_t) noexcept { }

    std::weak_ptr<Parent> _parent;
};

/// A link that also knows the node's place among its siblings, 0 while it is detached.
template <class Parent>
class IndexedChildLink : public ChildLink<Parent> {
protected:
    unsigned place() const noexcept { return _place; }

private:
    friend struct ChildLinkAccess;

    void setPlace(std::size_t place) noexcept { _place = static_cast<unsigned>(place); }

    unsigned _place = 0;
};

/// The one door to a node's link; for those that hold children.
struct ChildLinkAccess {
    template <class Parent, class Child>
    static void attach(Child &child, std::weak_ptr<Parent> parent)
    {
        static_cast<ChildLink<Parent> &>(child)._parent = std::move(parent);
    }

    /// Sets the parent alone, without making the node a child of it.
    template <class Parent, class Child>
    static void setParent(Child &child, const std::shared_ptr<Parent> &parent)
    {
        static_cast<ChildLink<Parent> &>(child)._parent = parent;
    }

    template <class Parent, class Child>
    static void detach(Child &child) noexcept
    {
        static_cast<ChildLink<Parent> &>(child)._parent.reset();
        child.setPlace(0);
    }

    template <class Child>
    static void setPlace(Child &child, std::size_t place) noexcept
    {
        child.setPlace(place);
    }

    /// Raises for no child, and for one that still has a parent.
    template <class Child>
    static void requireDetached(const std::shared_ptr<Child> &child)
    {
        ZARN_ASSERT_IN("zarn::ChildLinkAccess::requireDetached", child != nullptr);
        ZARN_ASSERT_IN("zarn::ChildLinkAccess::requireDetached", !child->hasParent());
    }

    /// A deep copy whose whole subtree is linked.
    template <class Node>
    static std::shared_ptr<Node> clone(const Node &node)
    {
        auto copy = std::make_shared<Node>(node);
        if constexpr (std::is_base_of_v<ParentNode<Node>, Node>) {
            // Nobody else sees the copy yet, so this takes no lock.
            ParentNodeAccess::linkOrphans(*copy);
            static_cast<ParentNode<Node> &>(*copy)._hasOrphans.store(false,
                                                                     std::memory_order_relaxed);
        }
        return copy;
    }
};

/// The children of a tree node: the only place where their parent and index are written. Blocks go
/// in and out with one shift and one renumbering.
template <class Parent, class Child>
class ChildList {
public:
    using Children = std::vector<std::shared_ptr<Child>>;

    ChildList() = default;

    /// Copies every child deeply; the copies have no parent until `link`.
    ChildList(const ChildList &other)
    {
        _items.reserve(other._items.size());
        for (const auto &child : other._items) {
            _items.push_back(ChildLinkAccess::clone(*child));
            ChildLinkAccess::setPlace(*_items.back(), _items.size() - 1);
        }
    }
    ChildList &operator=(const ChildList &other)
    {
        if (this != &other) {
            ChildList copy(other);
            detach(0, _items.size());
            _items.swap(copy._items);
        }
        return *this;
    }
    ~ChildList() = default;

    const Children &items() const noexcept { return _items; }
    unsigned size() const noexcept { return static_cast<unsigned>(_items.size()); }

    /// Empty past the end.
    std::shared_ptr<Child> at(std::size_t index) const
    {
        return index < _items.size() ? _items[index] : std::shared_ptr<Child>();
    }

    /// Puts one child in front of `index`; past the end it is appended.
    void insert(std::size_t index, std::shared_ptr<Child> child, std::weak_ptr<Parent> parent)
    {
        ChildLinkAccess::requireDetached(child);
        Child &node = *child;
        const std::size_t at = std::min(index, _items.size());
        _items.insert(_items.begin() + static_cast<std::ptrdiff_t>(at), std::move(child));
        ChildLinkAccess::attach(node, std::move(parent));
        renumberFrom(at);
    }

    void insert(std::size_t index, Children block, const std::weak_ptr<Parent> &parent)
    {
        for (const auto &child : block)
            ChildLinkAccess::requireDetached(child);
        const std::size_t at = std::min(index, _items.size());
        const std::size_t count = block.size();
        if (_items.empty())
            _items = std::move(block);
        else
            _items.insert(_items.begin() + static_cast<std::ptrdiff_t>(at),
                          std::make_move_iterator(block.begin()),
                          std::make_move_iterator(block.end()));
        for (std::size_t i = at; i < at + count; ++i)
            ChildLinkAccess::attach(*_items[i], parent);
        renumberFrom(at);
    }

    /// Takes the children `first` to `last` out, both inclusive and clipped to the list.
    Children take(std::size_t first, std::size_t last)
    {
        if (first >= _items.size() || first > last)
            return {};
        const std::size_t end = std::min(last, _items.size() - 1) + 1;
        detach(first, end);
        if (end - first == _items.size())
            return std::exchange(_items, {});
        const auto begin = _items.begin() + static_cast<std::ptrdiff_t>(first);
        const auto stop = _items.begin() + static_cast<std::ptrdiff_t>(end);
        Children block(std::make_move_iterator(begin), std::make_move_iterator(stop));
        _items.erase(begin, stop);
        renumberFrom(first);
        return block;
    }

    /// Puts a child in the place of another, which is returned.
    std::shared_ptr<Child> replace(std::size_t index, std::shared_ptr<Child> child,
                                   const std::weak_ptr<Parent> &parent)
    {
        ChildLinkAccess::requireDetached(child);
        detach(index, index + 1);
        ChildLinkAccess::attach(*child, parent);
        ChildLinkAccess::setPlace(*child, index);
        _items[index].swap(child);
        return child;
    }

    void swap(std::size_t first, std::size_t second)
    {
        _items[first].swap(_items[second]);
        ChildLinkAccess::setPlace(*_items[first], first);
        ChildLinkAccess::setPlace(*_items[second], second);
    }

    /// Gives a child another index; those that it passes make room.
    void move(std::size_t from, std::size_t to)
    {
        const auto at = [this](std::size_t index) {
            return _items.begin() + static_cast<std::ptrdiff_t>(index);
        };
        if (from < to)
            std::rotate(at(from), at(from + 1), at(to + 1));
        else
            std::rotate(at(to), at(from), at(from + 1));
        renumberFrom(std::min(from, to));
    }

    /// Finishes the links of a copy, once its owner is held by a shared pointer.
    void link(const std::weak_ptr<Parent> &parent)
    {
        for (const auto &child : _items)
            ChildLinkAccess::attach(*child, parent);
    }

    friend bool operator==(const ChildList &left, const ChildList &right)
    {
        return std::equal(left._items.begin(), left._items.end(), right._items.begin(),
                          right._items.end(),
                          [](const auto &a, const auto &b) { return *a == *b; });
    }

private:
    void detach(std::size_t first, std::size_t end) noexcept
    {
        for (std::size_t i = first; i < end; ++i)
            ChildLinkAccess::detach<Parent>(*_items[i]);
    }

    void renumberFrom(std::size_t first) noexcept
    {
        for (std::size_t i = first; i < _items.size(); ++i)
            ChildLinkAccess::setPlace(*_items[i], i);
    }

    Children _items;
};

} // namespace zarn
