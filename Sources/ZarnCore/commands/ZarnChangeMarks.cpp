// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnChangeMarks.h>

#include <ZarnCore/commands/NotePlaces.h>
#include <ZarnCore/commands/ZarnRangeNodes.h>

namespace zarn {

template <class Node>
bool ChangeMarks<Node>::prepare(Score *score, const ScoreModelRange &range, AlsoKept also)
{
    setScore(score);
    _range = range;
    _also = also;
    return canExist(range) && expectPlace([this] {
               begin(model());
               bool isAnyTaken = false;
               visitNodes(model(), _range, static_cast<const Node *>(nullptr),
                          [&](const MarkedPlace &place, Beat &beat, Node &node) {
                              isAnyTaken = takes(place, beat, node);
                              return !isAnyTaken;
                          });
               return isAnyTaken;
           });
}

template <class Node>
void ChangeMarks<Node>::apply()
{
    _nodeCount = 0;
    _isTaken.clear();
    _beats.clear();
    _notes.clear();
    _rhythms.clear();
    _links.clear();
    begin(model());
    if (_also.rhythms || _also.spans)
        keepSpans(_range);
    for (const SpanKind kind : givenSpans())
        setGivenSpan(kind);
    if (_also.links)
        _links.keep(model(), beatSpans(model(), _range));
    constexpr bool areNotes = std::is_same_v<Node, Note>;
    const Beat *lastBeat = nullptr;
    try {
        visitNodes(model(), _range, static_cast<const Node *>(nullptr),
                   [&](const MarkedPlace &place, Beat &beat, Node &node) {
                       const bool isTaken = takes(place, beat, node);
                       ++_nodeCount;
                       if (!isTaken) {
                           _isTaken.resize(_nodeCount, true);
                           _isTaken.back() = false;
                           return true;
                       }
                       if constexpr (areNotes) {
                           _notes.keep(node);
                           if (_also.otherMarks && &beat != lastBeat)
                               _beats.keep(beat);
                       } else {
                           _beats.keep(beat);
                           if (_also.rhythms)
                               _rhythms.push_back(beat.rhythmValue());
                           if (_also.otherMarks)
                               for (const auto &note : beat.notes())
                                   _notes.keep(*note);
                       }
                       lastBeat = &beat;
                       change(place, beat, node);
                       _notes.settle();
                       _beats.settle();
                       return !isForFirstOnly();
                   });
        followChange(model());
    } catch (...) {
        _notes.settle();
        _beats.settle();
        _links.settle();
        putBack();
        followReturn(model());
        throw;
    }
    if (_also.links) {
        _links.mend(model());
        _links.settle();
    }
    _notes.shrink();
    _beats.shrink();
    _rhythms.shrink_to_fit();
    requirePlace(lastBeat != nullptr);
}

template <class Node>
void ChangeMarks<Node>::revert()
{
    putBack();
    followReturn(model());
}

/// Walks as `apply` did: what it changed decides about no place.
template <class Node>
void ChangeMarks<Node>::putBack()
{
    typename KeptMarks<Beat>::Return giveToBeat(_beats);
    typename KeptMarks<Note>::Return giveToNote(_notes);
    const Beat *lastBeat = nullptr;
    std::size_t number = 0;
    std::size_t rhythm = 0;
    visitNodes(model(), _range, static_cast<const Node *>(nullptr),
               [&](const MarkedPlace &, Beat &beat, Node &node) {
                   if (number == _nodeCount)
                       return false;
                   const bool isTaken = number >= _isTaken.size() || _isTaken[number];
                   ++number;
                   if (!isTaken)
                       return true;
                   if constexpr (std::is_same_v<Node, Note>) {
                       giveToNote.to(node);
                       if (_also.otherMarks && &beat != lastBeat)
                           giveToBeat.to(beat);
                   } else {
                       giveToBeat.to(beat);
                       if (_also.rhythms)
                           beat.setRhythmValue(_rhythms[rhythm++]);
                       if (_also.otherMarks)
                           for (const auto &note : beat.notes())
                               giveToNote.to(*note);
                   }
                   lastBeat = &beat;
                   return true;
               });
    _links.putBack(model());
}

template <class Node>
void ChangeMarks<Node>::announce()
{
    TouchedBars touched;
    touched.add(_range);
    _links.addChanged(touched);
    touched.announce(score(), this);
}

template class ChangeMarks<Beat>;
template class ChangeMarks<Note>;

} // namespace zarn
