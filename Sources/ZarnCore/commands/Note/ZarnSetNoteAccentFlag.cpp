// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetNoteAccentFlag.h>

namespace zarn::cmd {

namespace {

constexpr bool isSingle(unsigned bits) noexcept
{
    return bits != 0 && (bits & (bits - 1)) == 0;
}

} // namespace

SetNoteAccentFlag::SetNoteAccentFlag() : SetByTable(QStringLiteral("SetNoteAccentFlag")) { }
SetNoteAccentFlag::~SetNoteAccentFlag() = default;

bool SetNoteAccentFlag::init(Score *score, const ScoreModelRange &range, AccentFlag flag,
                             bool checked)
{
    ZARN_ASSERT_IN("zarn::cmd::SetNoteAccentFlag::init", score != NULL);
    _flag = flag;
    _isChecked = checked;
    addArg(QStringLiteral("Checked"), checked ? QStringLiteral("true") : QStringLiteral("false"));
    const AccentFlags flags(flag);
    const bool isOneFlag = flags.bits() == static_cast<unsigned>(flag) && isSingle(flags.bits());
    return isOneFlag && prepare(score, range, {{NoteAttribute::Accents, flags}});
}

void SetNoteAccentFlag::change(const MarkedPlace &, Beat &beat, Note &note)
{
    const AccentFlags accents = note.accents();
    setAttribute(beat, note, NoteAttribute::Accents,
                 _isChecked ? accents.with(_flag) : accents.without(_flag));
}

} // namespace zarn::cmd
