// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Makes artificial, pinched, tapped, half or fed-back harmonics of fretted notes, in place of
/// other harmonics; no harmonic takes them off.
class ZARNCORE_EXPORT SetStringedNoteArtificialHarmonic final : public SetByTable<Note> {
public:
    SetStringedNoteArtificialHarmonic();
    ~SetStringedNoteArtificialHarmonic() override;

    /// Partial 2 to 12 of the stopped string. Notes whose tapped fret the staff has not are passed
    /// over. False when no note is left, and for natural harmonics.
    bool init(Score *score, const ScoreModelRange &range, HarmonicType type, unsigned partial = 2);

private:
    bool takes(const MarkedPlace &place, const Beat &beat, const Note &note) const override;
};

} // namespace zarn::cmd
