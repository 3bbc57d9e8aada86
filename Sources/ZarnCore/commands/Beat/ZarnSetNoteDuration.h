// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Beat/ZarnChangeRhythm.h>

namespace zarn::cmd {

/// Gives beats a note value. Their dots and tuplets stay.
class ZARNCORE_EXPORT SetNoteDuration final : public ChangeRhythm {
public:
    SetNoteDuration();
    ~SetNoteDuration() override;

    /// Every beat of the range. False when it holds none, and for what is no note value.
    bool init(Score *score, const ScoreModelRange &range, RhythmValue::NoteValue noteValue);

private:
    std::optional<RhythmValue> changed(const RhythmValue &rhythm) const override;

    RhythmValue::NoteValue _noteValue = RhythmValue::NoteValue::Quarter;
};

} // namespace zarn::cmd
