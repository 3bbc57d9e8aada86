// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetNoteAttribute.h>

namespace zarn::cmd {

SetNoteAttribute::SetNoteAttribute() : SetByTable(QStringLiteral("SetNoteAttribute")) { }
SetNoteAttribute::~SetNoteAttribute() = default;

bool SetNoteAttribute::init(Score *score, const ScoreModelRange &range, NoteAttribute id,
                            const AttributeValue &value)
{
    ZARN_ASSERT_IN("zarn::cmd::SetNoteAttribute::init", score != NULL);
    return prepare(score, range, {{id, value}}, Recorded::NamesAndValues);
}

} // namespace zarn::cmd
