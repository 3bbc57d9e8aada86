// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Steps an attribute of beats that has an order: the dynamic (none goes to MF), the speed of a
/// tremolo, the length of a brush or an arpeggio (doubled with each step), the fret of a barre, the
/// wah pedal (closed, open), the ottava sign (upwards). Each beat moves by itself and stays at the
/// end of its order; beats without the attribute are passed over.
class ZARNCORE_EXPORT IncrementBeatSecondaryAttribute final : public SetByTable<Beat> {
public:
    IncrementBeatSecondaryAttribute();
    ~IncrementBeatSecondaryAttribute() override;

    static constexpr int MostSteps = 16;

    /// 1 to 16 steps up, or down below 0. False for an attribute without an order, and when no beat
    /// of the range can move.
    bool init(Score *score, const ScoreModelRange &range, BeatAttribute id, int steps);

private:
    bool takes(const MarkedPlace &place, const Beat &beat, const Beat &node) const override;
    void change(const MarkedPlace &place, Beat &beat, Beat &node) override;

    /// What a beat gets; what it has when it cannot move.
    AttributeValue moved(const Staff &staff, const Beat &beat) const;

    int _steps = 0;
};

} // namespace zarn::cmd
