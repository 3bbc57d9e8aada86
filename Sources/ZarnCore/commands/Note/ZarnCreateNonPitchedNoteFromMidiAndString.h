// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Note/ZarnWriteNote.h>

namespace zarn::cmd {

/// Writes the percussion note that a MIDI key enters on a line of a drum tablature, in place of
/// another note on that line.
class ZARNCORE_EXPORT CreateNonPitchedNoteFromMidiAndString final : public WriteNote {
public:
    /// The number of the highest line that a tablature can have.
    static constexpr int HighestLine = 127;

    CreateNonPitchedNoteFromMidiAndString();
    ~CreateNonPitchedNoteFromMidiAndString() override;

    /// The line is counted as strings are, 0 the lowest. False for a beat that is not there, for a
    /// key that enters nothing (of several articulations the first counts), for a line that has
    /// the note already, and for a pitched track.
    bool init(Score *score, const ScoreModelIndex &index, int midi, int string);

private:
    std::optional<Placement> placement(const Staff &staff, const Beat &beat) const override;

    int _midi = 0;
    int _string = 0;
};

} // namespace zarn::cmd
