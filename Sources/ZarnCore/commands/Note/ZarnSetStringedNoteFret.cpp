// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetStringedNoteFret.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn::cmd {

SetStringedNoteFret::SetStringedNoteFret()
    : MoveNotes(QStringLiteral("SetStringedNoteFret"), {}) { }
SetStringedNoteFret::~SetStringedNoteFret() = default;

bool SetStringedNoteFret::init(Score *score, const ScoreModelRange &range, int fret)
{
    ZARN_ASSERT_IN("zarn::cmd::SetStringedNoteFret::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    addArg(QStringLiteral("Fret"), QString::number(fret));
    _fret = fret;
    return fret >= 0 && prepare(score, range);
}

bool SetStringedNoteFret::takes(const MarkedPlace &place, const Note &note) const
{
    return place.isFretted && note.string() != Note::Unset;
}

std::optional<NoteMove> SetStringedNoteFret::moved(const MarkedPlace &, const Note &,
                                                   const NotePosition &from) const
{
    return refretted(from, from.string, _fret);
}

} // namespace zarn::cmd
