// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Beat/ZarnChangeRhythm.h>

namespace zarn::cmd {

/// Makes tuplets of beats, each by itself, or plain beats of tuplets. Note values and dots stay.
class ZARNCORE_EXPORT SetBeatTuplet final : public ChangeRhythm {
public:
    SetBeatTuplet();
    ~SetBeatTuplet() override;

    /// (3, 2) is three notes in the time of two, (0, 0) is none; the inner tuplet stands in the
    /// outer one. False for a range without beats, for other ratios with a term below 2, and for an
    /// inner tuplet without an outer one.
    bool init(Score *score, const ScoreModelRange &range, RhythmValue::TupletRatio outer,
              RhythmValue::TupletRatio inner = {0, 0});

private:
    std::optional<RhythmValue> changed(const RhythmValue &rhythm) const override;

    RhythmValue::TupletRatio _outer;
    RhythmValue::TupletRatio _inner;
};

} // namespace zarn::cmd
