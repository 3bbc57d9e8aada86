// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

namespace zarn::cmd {

/// Writes a chord over a beat: its symbol, a diagram, or both. Those that are new join the working
/// sets of the staff. Sends `ModifyBarRange` and `ChordsChanged`.
class ZARNCORE_EXPORT SetChord final : public SetByTable<Beat> {
public:
    SetChord();
    ~SetChord() override;

    /// False for a beat that is not there, for no chord, and for a diagram that has not as many
    /// strings as the staff.
    bool init(Score *score, const ScoreModelIndex &beat, const ChordMark &chord);
};

} // namespace zarn::cmd
