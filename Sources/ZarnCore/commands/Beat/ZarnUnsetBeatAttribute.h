// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Takes an attribute off beats.
class ZARNCORE_EXPORT UnsetBeatAttribute final : public SetByTable<Beat> {
public:
    UnsetBeatAttribute();
    ~UnsetBeatAttribute() override;

    /// False when the range has no beat that can have the attribute, and for the note value, which
    /// every beat has.
    bool init(Score *score, const ScoreModelRange &range, BeatAttribute id);
};

} // namespace zarn::cmd
