// SPDX-License-Identifier: MIT
#include <ZarnCore/model/barring/BeatCut.h>

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/model/SplitAttributes.h>

#include <algorithm>

namespace zarn {

using utils::rational;

std::vector<RhythmValue> rhythmsLike(const rational &length, const RhythmValue &like)
{
    std::vector<RhythmValue> rhythms;
    if (like.getLength() == length)
        return {like};
    if (!like.hasPrimaryTuplet()) {
        RhythmValue::rhythms(length, rhythms);
        return rhythms;
    }
    RhythmValue plain = like;
    plain.unsetPrimaryTupletRatio();
    try {
        RhythmValue::rhythms(length * plain.getLength() / like.getLength(), rhythms);
    } catch (const CoreException &) {
        rhythms.clear();
    }
    const bool isPlain = !rhythms.empty()
        && std::none_of(rhythms.begin(), rhythms.end(),
                        [](const RhythmValue &rhythm) { return rhythm.hasPrimaryTuplet(); });
    if (!isPlain) {
        rhythms.clear();
        RhythmValue::rhythms(length, rhythms);
        return rhythms;
    }
    for (RhythmValue &rhythm : rhythms) {
        rhythm.setPrimaryTupletRatio(like.getPrimaryTupletRatio());
        rhythm.setSecondaryTupletRatio(like.getSecondaryTupletRatio());
    }
    return rhythms;
}

std::vector<Voice::Beats> cutBeat(const Beat &beat, const std::vector<rational> &lengths)
{
    std::vector<Voice::Beats> groups;
    Voice::Beats pieces;
    const RhythmValue like = beat.isWholeBarRest() ? RhythmValue() : beat.rhythmValue();
    for (const rational &length : lengths) {
        groups.emplace_back();
        for (const RhythmValue &rhythm : rhythmsLike(length, like)) {
            pieces.push_back(beat.clone());
            pieces.back()->setWholeBarRest(false);
            pieces.back()->setRhythmValue(rhythm);
            groups.back().push_back(pieces.back());
        }
    }
    splitAttributes(pieces);
    return groups;
}

} // namespace zarn
