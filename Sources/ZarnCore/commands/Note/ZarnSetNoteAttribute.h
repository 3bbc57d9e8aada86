// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Gives notes any attribute of the table. Does what the command of the attribute does.
class ZARNCORE_EXPORT SetNoteAttribute final : public SetByTable<Note> {
public:
    SetNoteAttribute();
    ~SetNoteAttribute() override;

    /// The notes of the range that take the attribute; the others are passed over. False when none
    /// does, and for a value outside the attribute's range.
    bool init(Score *score, const ScoreModelRange &range, NoteAttribute id,
              const AttributeValue &value);
};

} // namespace zarn::cmd
