// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Note/ZarnWriteNote.h>

namespace zarn::cmd {

/// Takes a percussion note off a line of a drum tablature. A beat without further notes is a rest.
class ZARNCORE_EXPORT RemoveNonPitchedNoteFromMidiAndString final : public WriteNote {
public:
    RemoveNonPitchedNoteFromMidiAndString();
    ~RemoveNonPitchedNoteFromMidiAndString() override;

    /// A key that enters the note or that plays it, and its line, counted as strings are. False
    /// when there is no such note, and for a pitched track.
    bool init(Score *score, const ScoreModelIndex &index, int midi, int string);

private:
    std::optional<Placement> placement(const Staff &staff, const Beat &beat) const override;

    int _midi = 0;
    int _string = 0;
};

} // namespace zarn::cmd
