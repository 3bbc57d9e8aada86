// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Makes natural harmonics of fretted notes, in place of other harmonics, or takes harmonics off.
/// The note keeps its fret, where the string is touched.
class ZARNCORE_EXPORT SetStringedNoteNaturalHarmonic final : public SetByTable<Note> {
public:
    SetStringedNoteNaturalHarmonic();
    ~SetStringedNoteNaturalHarmonic() override;

    /// Partial 2 to 12, or 0 for the one that speaks at the fret of each note; notes where none
    /// does are passed over. False when no note is left, and for other partials.
    bool init(Score *score, const ScoreModelRange &range, bool checked, unsigned partial = 0);

private:
    bool takes(const MarkedPlace &place, const Beat &beat, const Note &note) const override;
    void change(const MarkedPlace &place, Beat &beat, Note &note) override;

    bool _isPartialOfFret = false;
};

} // namespace zarn::cmd
