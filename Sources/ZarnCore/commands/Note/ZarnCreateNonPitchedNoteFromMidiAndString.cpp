// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnCreateNonPitchedNoteFromMidiAndString.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Note/NonPitchedNotes.h>
#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/ZarnStaff.h>

#include <utility>

namespace zarn::cmd {

CreateNonPitchedNoteFromMidiAndString::CreateNonPitchedNoteFromMidiAndString()
    : WriteNote(QStringLiteral("CreateNonPitchedNoteFromMidiAndString"))
{
}
CreateNonPitchedNoteFromMidiAndString::~CreateNonPitchedNoteFromMidiAndString() = default;

bool CreateNonPitchedNoteFromMidiAndString::init(Score *score, const ScoreModelIndex &index,
                                                 int midi, int string)
{
    ZARN_ASSERT_IN("zarn::cmd::CreateNonPitchedNoteFromMidiAndString::init", score != NULL);
    addArg(QStringLiteral("Index"), index.toQString());
    addArg(QStringLiteral("Type"), QString::number(midi));
    addArg(QStringLiteral("String"), QString::number(string));
    _midi = midi;
    _string = string;
    return string >= 0 && string <= HighestLine && prepare(score, index);
}

std::optional<WriteNote::Placement>
CreateNonPitchedNoteFromMidiAndString::placement(const Staff &staff, const Beat &beat) const
{
    const auto set = nonPitchedSetOf(staff);
    const bool hasLine =
        !staff.isFretted() || _string < static_cast<int>(staff.tuning().stringCount());
    if (set == nullptr || !hasLine)
        return std::nullopt;
    auto position = positionOfArticulation(*set, set->indexOfArticulationWithMidi(_midi));
    auto replaced = beat.noteOnString(_string);
    const bool isThere =
        position && replaced && replaced->percussionArticulation() == position->articulation;
    if (!position || isThere)
        return std::nullopt;
    position->string = static_cast<std::int8_t>(_string);
    return Placement{std::move(replaced), position};
}

} // namespace zarn::cmd
