// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnShiftSemitone.h>

#include <ZarnCore/ZarnAssert.h>

#include <cstdlib>

namespace zarn::cmd {

ShiftSemitone::ShiftSemitone() : MoveNotes(QStringLiteral("ShiftSemitone"), {}) { }
ShiftSemitone::~ShiftSemitone() = default;

bool ShiftSemitone::init(Score *score, const ScoreModelRange &range, int semitones)
{
    ZARN_ASSERT_IN("zarn::cmd::ShiftSemitone::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    addArg(QStringLiteral("Value"), QString::number(semitones));
    _semitones = semitones;
    return semitones != 0 && std::abs(semitones) <= MostSemitones && prepare(score, range);
}

bool ShiftSemitone::takes(const MarkedPlace &place, const Note &) const
{
    return place.isPitched;
}

std::optional<NoteMove> ShiftSemitone::moved(const MarkedPlace &, const Note &,
                                             const NotePosition &from) const
{
    return repitched(from, _semitones, NotePosition::NoSpelling);
}

} // namespace zarn::cmd
