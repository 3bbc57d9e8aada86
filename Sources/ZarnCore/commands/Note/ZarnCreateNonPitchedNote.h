// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Note/ZarnWriteNote.h>

namespace zarn::cmd {

/// Writes a percussion note on a beat, beside those that are there: key, place on the staff and
/// head are those of its articulation.
class ZARNCORE_EXPORT CreateNonPitchedNote final : public WriteNote {
public:
    CreateNonPitchedNote();
    ~CreateNonPitchedNote() override;

    /// The number of the articulation in the instrument set of the track. False for a beat that is
    /// not there or has it, for a number that the set does not have, and for a pitched track.
    bool init(Score *score, const ScoreModelIndex &index, int articulation);

private:
    std::optional<Placement> placement(const Staff &staff, const Beat &beat) const override;

    int _articulation = 0;
};

} // namespace zarn::cmd
