// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Strums chords of fretted staves: down is the way of the hand, from the lowest string. Takes
/// arpeggio, rasgueado and pick stroke off.
class ZARNCORE_EXPORT SetBrush final : public SetByTable<Beat> {
public:
    SetBrush();
    ~SetBrush() override;

    /// Beats of two notes or more; `length` in 960ths of a quarter from the first note to the last,
    /// 0 for the usual 64th. No direction takes the brush off. False when the range has no chord on
    /// a fretted staff.
    bool init(Score *score, const ScoreModelRange &range, Direction direction, unsigned length = 0,
              StrumAnchor anchor = StrumAnchor::StartsOnBeat);
};

} // namespace zarn::cmd
