// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Gives beats any attribute of the table. Does what the command of the attribute does.
class ZARNCORE_EXPORT SetBeatAttribute final : public SetByTable<Beat> {
public:
    SetBeatAttribute();
    ~SetBeatAttribute() override;

    /// The beats of the range that take the attribute; the others are passed over. False when none
    /// does, and for a value outside the attribute's range.
    bool init(Score *score, const ScoreModelRange &range, BeatAttribute id,
              const AttributeValue &value);
};

} // namespace zarn::cmd
