// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnRemoveNonPitchedNoteFromMidiAndString.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Note/NonPitchedNotes.h>
#include <ZarnCore/model/ZarnBeat.h>

namespace zarn::cmd {

RemoveNonPitchedNoteFromMidiAndString::RemoveNonPitchedNoteFromMidiAndString()
    : WriteNote(QStringLiteral("RemoveNonPitchedNoteFromMidiAndString"))
{
}
RemoveNonPitchedNoteFromMidiAndString::~RemoveNonPitchedNoteFromMidiAndString() = default;

bool RemoveNonPitchedNoteFromMidiAndString::init(Score *score, const ScoreModelIndex &index,
                                                 int midi, int string)
{
    ZARN_ASSERT_IN("zarn::cmd::RemoveNonPitchedNoteFromMidiAndString::init", score != NULL);
    addArg(QStringLiteral("Index"), index.toQString());
    addArg(QStringLiteral("Type"), QString::number(midi));
    addArg(QStringLiteral("String"), QString::number(string));
    _midi = midi;
    _string = string;
    return midi >= 0 && string >= 0 && prepare(score, index);
}

std::optional<WriteNote::Placement>
RemoveNonPitchedNoteFromMidiAndString::placement(const Staff &staff, const Beat &beat) const
{
    const auto set = nonPitchedSetOf(staff);
    const int articulation = set != nullptr ? set->indexOfArticulationWithMidi(_midi) : -1;
    for (const auto &note : beat.notes()) {
        const bool isNamed = note->midi() == _midi
            || (articulation >= 0 && note->percussionArticulation() == articulation);
        if (set != nullptr && isNamed && note->string() == _string)
            return Placement{note, std::nullopt};
    }
    return std::nullopt;
}

} // namespace zarn::cmd
