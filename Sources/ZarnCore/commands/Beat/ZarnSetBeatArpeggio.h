// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Rolls chords: up is from the lowest note. Takes brush, rasgueado and pick stroke off, and the
/// bracket that says that a chord is struck at once.
class ZARNCORE_EXPORT SetBeatArpeggio final : public SetByTable<Beat> {
public:
    SetBeatArpeggio();
    ~SetBeatArpeggio() override;

    /// Beats of two notes or more; `length` in 960ths of a quarter from the first note to the last,
    /// 0 for the usual 16th. No direction takes the arpeggio off. False when the range has no
    /// chord.
    bool init(Score *score, const ScoreModelRange &range, Direction direction, unsigned length = 0,
              StrumAnchor anchor = StrumAnchor::StartsOnBeat);
};

} // namespace zarn::cmd
