// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnNote.h>
#include <ZarnCore/model/ZarnRunList.h>

#include <cstddef>
#include <type_traits>
#include <utility>
#include <vector>

namespace zarn {

/// What a node is marked with beside its marks and its details: of beats, nothing.
template <class Node>
struct KeptLook {
    explicit KeptLook(const Node &) noexcept { }

    void giveTo(Node &) const noexcept { }
    bool isOf(const Node &) const noexcept { return true; }
};

/// Of notes, their heads.
template <>
struct KeptLook<Note> {
    explicit KeptLook(const Note &note) noexcept : head(note.noteHead()), fill(note.headFill()) { }

    void giveTo(Note &note) const
    {
        note.setNoteHead(head);
        note.setHeadFill(fill);
    }
    bool isOf(const Note &note) const noexcept
    {
        return note.noteHead() == head && note.headFill() == fill;
    }

    NoteHead head;
    HeadFill fill;
};

/// How nodes were marked before a change, in the order in which they were kept: eight bytes for
/// each that was marked unlike the one before it, a bit for the others, and the details and the
/// heads of those where they changed.
template <class Node>
class KeptMarks {
public:
    using Marks = std::decay_t<decltype(std::declval<const Node &>().marks())>;
    using Details = std::decay_t<decltype(std::declval<const Node &>().details())>;
    using Look = KeptLook<Node>;

    void clear() noexcept
    {
        _pending.clear();
        _pendingDetails.clear();
        _pendingLooks.clear();
        _marks.clear();
        _details.clear();
        _looks.clear();
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
        _pendingLooks.emplace_back(node);
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
        auto look = _pendingLooks.begin();
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
            if (!look->isOf(*node)) {
                isChanged = true;
                _looks.emplace_back(number, *look);
            }
            ++look;
            if (isChanged)
                visitChanged(number);
        }
        _pending.clear();
        _pendingDetails.clear();
        _pendingLooks.clear();
    }

    /// To be called when all nodes are kept.
    void shrink()
    {
        _marks.shrink();
        _details.shrink_to_fit();
        _looks.shrink_to_fit();
        _pending.shrink_to_fit();
        _pendingDetails.shrink_to_fit();
        _pendingLooks.shrink_to_fit();
    }

    /// Gives back what the nodes had, one after the other in the order in which they were kept.
    class Return {
    public:
        explicit Return(const KeptMarks &kept) noexcept : _kept(kept) { }

        void to(Node &node)
        {
            const std::size_t number = _cursor.number();
            node.setMarks(_cursor.next(_kept._marks));
            if (const Details *const details = next(_kept._details, _detailsNumber, number))
                node.setDetails(*details);
            if (const Look *const look = next(_kept._looks, _looksNumber, number))
                look->giveTo(node);
        }

        /// Leaves one out.
        void pass()
        {
            const std::size_t number = _cursor.number();
            _cursor.next(_kept._marks);
            next(_kept._details, _detailsNumber, number);
            next(_kept._looks, _looksNumber, number);
        }

    private:
        /// What was kept of the node with a number, or null; goes past it.
        template <class Kept>
        static const Kept *next(const std::vector<std::pair<std::size_t, Kept>> &all,
                                std::size_t &place, std::size_t number)
        {
            const bool isHeld = place < all.size() && all[place].first == number;
            return isHeld ? &all[place++].second : nullptr;
        }

        const KeptMarks &_kept;
        typename RunList<Marks>::Cursor _cursor;
        std::size_t _detailsNumber = 0;
        std::size_t _looksNumber = 0;
    };

private:
    using NumberedDetails = std::vector<std::pair<std::size_t, Details>>; ///< by number of the node

    std::vector<const Node *> _pending; ///< the last ones that are kept, until `settle`
    typename RunList<Marks>::Cursor _firstPending;
    NumberedDetails _pendingDetails;
    std::vector<Look> _pendingLooks;
    RunList<Marks> _marks;
    NumberedDetails _details;
    std::vector<std::pair<std::size_t, Look>> _looks;
};

} // namespace zarn
