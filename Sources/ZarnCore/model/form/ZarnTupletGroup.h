// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/music/ZarnRhythmValue.h>
#include <ZarnCore/utils/rational.h>

#include <optional>

namespace zarn {

/// Of two tuplets in one another.
enum class TupletLevel { Outer, Inner };

/// The notes under one bracket. The tree holds ratios with the beats, not brackets: beats of one
/// ratio belong together until they are as many as the ratio names.
class ZARNCORE_EXPORT TupletGroup {
public:
    using Ratio = RhythmValue::TupletRatio;

    /// The ratio of a level; none where there is no such tuplet. One that changes nothing, such as
    /// 2:2, is none.
    static std::optional<Ratio> ratioOf(const RhythmValue &rhythm, TupletLevel level);

    /// `onset` is that of the first beat, in quarters from the start of the bar. The first beat is
    /// to be added too, and has a ratio.
    TupletGroup(const RhythmValue &first, TupletLevel level, const utils::rational &onset);

    const Ratio &ratio() const noexcept { return _ratio; }

    /// Whether a beat has the ratio of the group.
    bool takes(const RhythmValue &rhythm) const { return ratioOf(rhythm, _level) == _ratio; }

    /// The next beat, which takes time.
    void add(const RhythmValue &rhythm);

    /// Equal values fill a group when they are as many as the ratio names; mixed ones are grouped
    /// by whole quarters, as they are beamed. What begins in the middle of the time that a group
    /// takes, because its first notes are in another voice, ends with that time.
    bool isFull() const;

private:
    TupletLevel _level;
    Ratio _ratio;
    utils::rational _start;
    utils::rational _end;
    utils::rational _length; ///< as the values count under the bracket
    utils::rational _lastLength;
    utils::rational _unit; ///< the shortest value; a bracket inside counts as its time
    bool _isUniform = true;
};

} // namespace zarn
