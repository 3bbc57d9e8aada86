// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnShiftOneString.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn::cmd {

template <unsigned Direction>
ShiftOneString<Direction>::ShiftOneString()
    : MoveNotes(QStringLiteral("ShiftOneString<%1>").arg(Direction), {})
{
}

template <unsigned Direction>
ShiftOneString<Direction>::~ShiftOneString() = default;

template <unsigned Direction>
bool ShiftOneString<Direction>::init(Score *score, const ScoreModelRange &range)
{
    ZARN_ASSERT_IN(Direction == 0 ? "zarn::cmd::ShiftOneString<0>::init"
                                  : "zarn::cmd::ShiftOneString<1>::init",
                   score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    return prepare(score, range);
}

template <unsigned Direction>
bool ShiftOneString<Direction>::takes(const MarkedPlace &place, const Note &note) const
{
    return place.isFretted && note.string() != Note::Unset;
}

template <unsigned Direction>
std::optional<NoteMove> ShiftOneString<Direction>::moved(const MarkedPlace &, const Note &,
                                                         const NotePosition &from) const
{
    const int string = from.string + (Direction == static_cast<unsigned>(Shift::Up) ? 1 : -1);
    const int pitch = fretboard().pitch(from.string, from.fret);
    return refretted(from, string, fretboard().fret(string, pitch >= 0 ? pitch : from.midi));
}

template class ShiftOneString<0>;
template class ShiftOneString<1>;

} // namespace zarn::cmd
