// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Beat/ZarnChangeRhythm.h>

namespace zarn::cmd {

/// Makes beats longer or shorter by steps of the note values: an eighth becomes a quarter, a half.
/// Each goes by itself and stays at the longest and the shortest value; dots and tuplets stay.
class ZARNCORE_EXPORT IncrementBeatDuration final : public ChangeRhythm {
public:
    static constexpr int MostSteps = 10;

    IncrementBeatDuration();
    ~IncrementBeatDuration() override;

    /// Up to `MostSteps` longer, or, negative, shorter. False for 0 and more steps, and when no
    /// beat of the range can go.
    bool init(Score *score, const ScoreModelRange &range, int steps);

private:
    std::optional<RhythmValue> changed(const RhythmValue &rhythm) const override;

    int _steps = 0;
};

} // namespace zarn::cmd
