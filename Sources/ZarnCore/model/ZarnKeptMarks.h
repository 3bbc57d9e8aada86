// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnRunList.h>

#include <cstddef>
#include <type_traits>
#include <utility>
#include <vector>

namespace zarn {

/// How nodes were marked before a change, in the order in which they were kept: eight bytes for
/// each that was marked unlike the one before it, a bit for the others, and the details of those
/// whose details changed.
template <class Node>
class KeptMarks {
public:
    using Marks = std::decay_t<decltype(std::declval<const Node &>().marks())>;
    using Details = std::decay_t<decltype(std::declval<const Node &>().details())>;

    void clear() noexcept
    {
        _pending.clear();
        _pendingDetails.clear();
        _marks.clear();
        _details.clear();
    }
    bool isEmpty() const noexcept { return _marks.isEmpty(); }

    /// Keeps a node that is about to be changed; `settle` follows the change.
    void keep(const Node &node)
    {
        if (node.hasDetails())
            _pendingDetails.emplace_back(_marks.size(), node.details());
        if (_pending.empty())
            _firstPending = _marks.end();
        _pending.push_back(&node);
        _marks.add(node.marks());
    }

    /// Keeps the details that changed since the last call, and no others.
    void settle()
    {
        settle([](std::size_t) {});
    }

    /// The same; calls `visitChanged` with the number of each node that changed since then.
    template <class Visit>
    void settle(Visit visitChanged)
    {
        auto cursor = _firstPending;
        auto before = _pendingDetails.begin();
        for (const Node *const node : _pending) {
            const std::size_t number = cursor.number();
            bool isChanged = node->marks() != cursor.next(_marks);
            const bool hadDetails = before != _pendingDetails.end() && before->first == number;
            if (hadDetails || node->hasDetails()) {
                Details details = hadDetails ? std::move(before++->second) : Details();
                if (details != node->details()) {
                    isChanged = true;
                    _details.emplace_back(number, std::move(details));
                }
            }
            if (isChanged)
                visitChanged(number);
        }
        _pending.clear();
        _pendingDetails.clear();
    }

    /// To be called when all nodes are kept.
    void shrink()
    {
        _marks.shrink();
        _details.shrink_to_fit();
        _pending.shrink_to_fit();
        _pendingDetails.shrink_to_fit();
    }

    /// Gives back what the nodes had, one after the other in the order in which they were kept.
    class Return {
    public:
        explicit Return(const KeptMarks &kept) noexcept : _kept(kept) { }

        void to(Node &node)
        {
            const std::size_t number = _cursor.number();
            node.setMarks(_cursor.next(_kept._marks));
            if (const Details *const details = detailsOf(number))
                node.setDetails(*details);
        }

        /// Leaves one out.
        void pass()
        {
            const std::size_t number = _cursor.number();
            _cursor.next(_kept._marks);
            detailsOf(number);
        }

    private:
        /// Those that were kept of the node with a number, or null; goes past them.
        const Details *detailsOf(std::size_t number)
        {
            const auto &details = _kept._details;
            const bool isHeld =
                _detailsNumber < details.size() && details[_detailsNumber].first == number;
            return isHeld ? &details[_detailsNumber++].second : nullptr;
        }

        const KeptMarks &_kept;
        typename RunList<Marks>::Cursor _cursor;
        std::size_t _detailsNumber = 0;
    };

private:
    using NumberedDetails = std::vector<std::pair<std::size_t, Details>>; ///< by number of the node

    std::vector<const Node *> _pending; ///< the last ones that are kept, until `settle`
    typename RunList<Marks>::Cursor _firstPending;
    NumberedDetails _pendingDetails;
    RunList<Marks> _marks;
    NumberedDetails _details;
};

} // namespace zarn
