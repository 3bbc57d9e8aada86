// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Note/ZarnWriteNote.h>

namespace zarn::cmd {

/// Writes a pitch on a beat: it takes the place of the note that the index names by its MIDI key,
/// or is added to those that are there. On a fretted staff it goes to the string of the note that
/// it replaces or, where that cannot play it, to the free string that needs the lowest fret.
class ZARNCORE_EXPORT SetMIDINote final : public WriteNote {
public:
    SetMIDINote();
    ~SetMIDINote() override;

    /// The MIDI key of the pitch as written, 0 to 127, and how it is spelled; without a spelling
    /// the key signature decides. False for a beat, or a named note, that is not there, for a pitch
    /// that the beat has already, for one that no free string can play, and for a spelling of
    /// another pitch.
    bool init(Score *score, const ScoreModelIndex &index, int midi,
              const std::optional<PitchClass> &spelling = std::nullopt);

private:
    std::optional<Placement> placement(const Staff &staff, const Beat &beat) const override;
    static bool findString(const Staff &staff, const Beat &beat, Placement &placement);

    static constexpr int highestKey = 127;

    int _midi = 0;
    std::optional<PitchClass> _spelling;
};

} // namespace zarn::cmd
