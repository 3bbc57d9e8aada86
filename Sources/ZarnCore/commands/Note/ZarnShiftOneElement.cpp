// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnShiftOneElement.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Note/NonPitchedNotes.h>
#include <ZarnCore/model/notes/ZarnInstrumentNotes.h>

namespace zarn::cmd {

template <unsigned Direction>
ShiftOneElement<Direction>::ShiftOneElement()
    : MoveNotes(QStringLiteral("ShiftOneElement<%1>").arg(Direction),
                {Homeless::Refused, Announced::Range, KeptPositions::Parts::PitchesAndPercussion})
{
}

template <unsigned Direction>
ShiftOneElement<Direction>::~ShiftOneElement() = default;

template <unsigned Direction>
bool ShiftOneElement<Direction>::init(Score *score, const ScoreModelRange &range)
{
    ZARN_ASSERT_IN(Direction == 0 ? "zarn::cmd::ShiftOneElement<0>::init"
                                  : "zarn::cmd::ShiftOneElement<1>::init",
                   score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    return prepare(score, range);
}

template <unsigned Direction>
void ShiftOneElement<Direction>::enterStaff(const Staff &staff)
{
    _set = nonPitchedSetOf(staff);
}

/// Where a note stands: where it says, else where its articulation does.
template <unsigned Direction>
int ShiftOneElement<Direction>::lineOf(const Note &note) const
{
    if (note.staffLine() != Note::NoStaffLine)
        return note.staffLine();
    const int index = note.percussionArticulation() != Note::Unset
        ? note.percussionArticulation()
        : _set->indexOfArticulationWithMidi(note.midi());
    const auto position = positionOfArticulation(*_set, index);
    return position ? position->staffLine : Note::NoStaffLine;
}

template <unsigned Direction>
bool ShiftOneElement<Direction>::takes(const MarkedPlace &, const Note &note) const
{
    return _set != nullptr && lineOf(note) != Note::NoStaffLine;
}

template <unsigned Direction>
std::optional<NoteMove> ShiftOneElement<Direction>::moved(const MarkedPlace &, const Note &note,
                                                          const NotePosition &) const
{
    const int line = lineOf(note);
    const bool isUp = Direction == static_cast<unsigned>(Shift::Up);
    const int next = isUp ? _set->nextLine(line) : _set->previousLine(line);
    const auto to = next != line
        ? positionOfArticulation(*_set, _set->indexOfFirstArticulationWithStaffLine(next))
        : std::nullopt;
    return to ? std::optional<NoteMove>({*to, std::nullopt}) : std::nullopt;
}

template class ShiftOneElement<0>;
template class ShiftOneElement<1>;

} // namespace zarn::cmd
