// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetNoteOrnament.h>

namespace zarn::cmd {

SetNoteOrnament::SetNoteOrnament() : SetByTable(QStringLiteral("SetNoteOrnament")) { }
SetNoteOrnament::~SetNoteOrnament() = default;

bool SetNoteOrnament::init(Score *score, const ScoreModelRange &range, Ornament ornament,
                           bool checked)
{
    ZARN_ASSERT_IN("zarn::cmd::SetNoteOrnament::init", score != NULL);
    const Ornament value = checked ? ornament : Ornament::NoOrnament;
    return (ornament != Ornament::NoOrnament)
        && prepare(score, range, {{NoteAttribute::Ornament, value}});
}

} // namespace zarn::cmd
