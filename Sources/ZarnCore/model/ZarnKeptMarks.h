// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>
#include <vector>

namespace zarn {

/// How nodes were marked before a change, in the order in which they were kept: eight bytes for
/// each, and the details of those whose details changed.
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
    bool isEmpty() const noexcept { return _marks.empty(); }

    /// Keeps a node that is about to be changed; `settle` follows the change.
    void keep(const Node &node)
    {
        if (node.hasDetails())
            _pendingDetails.emplace_back(_marks.size(), node.details());
        _pending.push_back(&node);
        _marks.push_back(node.marks());
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
        std::size_t number = _marks.size() - _pending.size();
        auto before = _pendingDetails.begin();
        for (const Node *const node : _pending) {
            bool isChanged = node->marks() != _marks[number];
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
            ++number;
        }
        _pending.clear();
        _pendingDetails.clear();
    }

    /// Gives back what the nodes had, one after the other in the order in which they were kept.
    class Return {
    public:
        explicit Return(const KeptMarks &kept) noexcept : _kept(kept) { }

        void to(Node &node)
        {
            node.setMarks(_kept._marks[_number]);
            const auto &details = _kept._details;
            if (_detailsNumber < details.size() && details[_detailsNumber].first == _number)
                node.setDetails(details[_detailsNumber++].second);
            ++_number;
        }

        /// Leaves one out.
        void pass()
        {
            const auto &details = _kept._details;
            if (_detailsNumber < details.size() && details[_detailsNumber].first == _number)
                ++_detailsNumber;
            ++_number;
        }

    private:
        const KeptMarks &_kept;
        std::size_t _number = 0;
        std::size_t _detailsNumber = 0;
    };

private:
    using NumberedDetails = std::vector<std::pair<std::size_t, Details>>; ///< by number of the node

    std::vector<const Node *> _pending; ///< the last ones that are kept, until `settle`
    NumberedDetails _pendingDetails;
    std::vector<Marks> _marks;
    NumberedDetails _details;
};

} // namespace zarn
