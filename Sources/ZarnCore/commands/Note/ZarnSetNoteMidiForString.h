// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Note/ZarnWriteNote.h>

namespace zarn::cmd {

/// Writes a pitch on a string of a beat, in place of the note that the string has. The fret follows
/// from the staff's tuning and capo.
class ZARNCORE_EXPORT SetNoteMidiForString final : public WriteNote {
public:
    SetNoteMidiForString();
    ~SetNoteMidiForString() override;

    /// String 0 is the lowest, the MIDI key that of the pitch as written. False for a beat or a
    /// string that is not there, and for a pitch that the string has on no fret.
    bool init(Score *score, const ScoreModelIndex &index, int string, int midi);

private:
    std::optional<Placement> placement(const Staff &staff, const Beat &beat) const override;

    int _string = 0;
    int _midi = 0;
};

} // namespace zarn::cmd
