// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/TremoloPairs.h>

namespace zarn::playback {

std::optional<std::uint32_t> TremoloPairs::partnerBehind(std::uint32_t beat) const
{
    if (_beats[beat].beat->tremoloToNext() == 0)
        return std::nullopt;
    for (std::uint32_t next = beat + 1; next < _beats.size() && _beats[next].isJoined; ++next)
        if (!_beats[next].beat->isGrace())
            return next;
    return std::nullopt;
}

std::optional<std::uint32_t> TremoloPairs::partnerBefore(std::uint32_t beat) const
{
    if (_beats[beat].beat->isGrace())
        return std::nullopt;
    for (; beat > 0 && _beats[beat].isJoined; --beat) {
        const Beat &before = *_beats[beat - 1].beat;
        if (before.tremoloToNext() != 0)
            return beat - 1;
        if (!before.isGrace())
            break;
    }
    return std::nullopt;
}

std::vector<Stroke> TremoloPairs::strokesOf(std::uint32_t beat) const
{
    if (const auto first = partnerBefore(beat))
        return strokes(*first, beat, TremoloSide::Second);
    if (const auto second = partnerBehind(beat))
        return strokes(beat, *second, TremoloSide::First);
    return {};
}

std::vector<Stroke> TremoloPairs::strokes(std::uint32_t first, std::uint32_t second,
                                          TremoloSide side) const
{
    const PlayedBeat &left = _beats[first];
    const PlayedBeat &right = _beats[second];
    TremoloPairTimes times{left.length, right.length, left.length, PairJoint::Direct};
    if (second != first + 1) {
        times.distance = right.start - left.start;
        times.joint = PairJoint::GraceNotes;
    }
    return strokesOfPair(*left.beat, side, times);
}

} // namespace zarn::playback
