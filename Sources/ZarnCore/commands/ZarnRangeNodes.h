// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>
#include <ZarnCore/model/places/ZarnRangeBarIterator.h>
#include <ZarnCore/model/places/ZarnRangeBeatIterator.h>
#include <ZarnCore/model/places/ZarnRangeNoteIterator.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace zarn {

/// How the nodes of a kind are walked.
template <class Node>
struct RangeWalk;
template <>
struct RangeWalk<Bar> {
    using Iterator = RangeBarIterator;
    static constexpr auto node = &RangeBarIterator::bar;
};
template <>
struct RangeWalk<Beat> {
    using Iterator = RangeBeatIterator;
    static constexpr auto node = &RangeBeatIterator::beat;
};
template <>
struct RangeWalk<Note> {
    using Iterator = RangeNoteIterator;
    static constexpr auto node = &RangeNoteIterator::note;
};

/// The bars, beats or notes that a range selects in a model, as their iterator gives them; a list
/// that stays when the tree is changed. The model of the range's indexes is not looked at.
template <class Node>
std::vector<std::shared_ptr<Node>> nodesInRange(ScoreModel &model, const ScoreModelRange &range)
{
    std::vector<std::shared_ptr<Node>> nodes;
    for (typename RangeWalk<Node>::Iterator it(rangeIn(model, range)); it.oneStep();)
        nodes.push_back((it.*RangeWalk<Node>::node)());
    return nodes;
}

/// Whether some score has such a place: no number of it is unset, but for the beat, or too large.
inline bool canExist(const ScoreModelIndex &place) noexcept
{
    return place.trackIndex() >= 0 && place.barIndex() >= 0 && place.beatIndex() >= -1
        && place.voiceIndex() < Bar::MaxVoices;
}

inline bool canExist(const ScoreModelRange &range) noexcept
{
    return canExist(range.first()) && canExist(range.second());
}

/// The staves, first and last, that a range over one track reaches: from end to end in multi-voice
/// mode, else that of the first end.
inline std::pair<unsigned, unsigned> stavesOf(const ScoreModelRange &range) noexcept
{
    const unsigned first = range.first().staffIndex();
    return range.isMultiVoice() ? std::minmax({first, range.second().staffIndex()})
                                : std::make_pair(first, first);
}

} // namespace zarn
