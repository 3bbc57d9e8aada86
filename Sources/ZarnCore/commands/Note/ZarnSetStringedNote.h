// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Note/ZarnWriteNote.h>

namespace zarn::cmd {

/// Writes a fret number on a string of a beat, in place of the note that the string has. The pitch
/// follows from the staff's tuning and capo.
class ZARNCORE_EXPORT SetStringedNote final : public WriteNote {
public:
    SetStringedNote();
    ~SetStringedNote() override;

    /// String 0 is the lowest, fret 0 the open string. False for a beat, a string or a fret that
    /// the staff does not have.
    bool init(Score *score, const ScoreModelIndex &index, int string, int fret);

private:
    std::optional<Placement> placement(const Staff &staff, const Beat &beat) const override;

    int _string = 0;
    int _fret = 0;
};

} // namespace zarn::cmd
