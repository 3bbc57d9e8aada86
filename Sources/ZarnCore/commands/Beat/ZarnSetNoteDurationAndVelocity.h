// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnChangeMarks.h>
#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

namespace zarn::cmd {

/// Gives a beat its note value and a note its velocity in one step, as a keyboard enters both.
class ZARNCORE_EXPORT SetNoteDurationAndVelocity final : public ChangeMarks<Beat> {
public:
    SetNoteDurationAndVelocity();
    ~SetNoteDurationAndVelocity() override;

    /// The velocity, 1 to 127, of the note that the index names, or of all notes of the beat where
    /// it names none of them. False for a rest and for a value that is not written.
    bool init(Score *score, const ScoreModelIndex &index, const RhythmValue &rhythm,
              unsigned velocity);

private:
    bool takes(const MarkedPlace &place, const Beat &beat, const Beat &node) const override;
    void change(const MarkedPlace &place, Beat &beat, Beat &node) override;

    RhythmValue _rhythm;
    unsigned _velocity = 0;
};

} // namespace zarn::cmd
