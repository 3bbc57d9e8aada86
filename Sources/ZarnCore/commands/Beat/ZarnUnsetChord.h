// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Takes the chords of beats away; the working sets of their staves stay as they are. Sends
/// `ModifyBarRange` and `ChordsChanged`.
class ZARNCORE_EXPORT UnsetChord final : public SetByTable<Beat> {
public:
    UnsetChord();
    ~UnsetChord() override;

    /// False when no beat of the range has a chord.
    bool init(Score *score, const ScoreModelRange &range);

private:
    bool takes(const MarkedPlace &place, const Beat &beat, const Beat &node) const override;
};

} // namespace zarn::cmd
