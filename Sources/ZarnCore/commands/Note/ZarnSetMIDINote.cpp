// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetMIDINote.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/notes/ZarnFretting.h>
#include <ZarnCore/music/ZarnTone.h>

#include <utility>

namespace zarn::cmd {

SetMIDINote::SetMIDINote() : WriteNote(QStringLiteral("SetMIDINote")) { }
SetMIDINote::~SetMIDINote() = default;

bool SetMIDINote::init(Score *score, const ScoreModelIndex &index, int midi,
                       const std::optional<PitchClass> &spelling)
{
    ZARN_ASSERT_IN("zarn::cmd::SetMIDINote::init", score != NULL);
    addArg(QStringLiteral("StageIndex"), index.toQString());
    addArg(QStringLiteral("Type"), QString::number(midi));
    if (spelling)
        addArg(QStringLiteral("Value"), spelling->toString());
    _midi = midi;
    _spelling = spelling;
    const bool isSpelled = !spelling || (*spelling && spelling->tone() == Tone(midi));
    return midi >= 0 && midi <= highestKey && isSpelled && prepare(score, index);
}

std::optional<WriteNote::Placement> SetMIDINote::placement(const Staff &staff,
                                                           const Beat &beat) const
{
    if (beat.noteWithMidi(_midi) != nullptr)
        return std::nullopt;
    std::shared_ptr<Note> replaced;
    if (index().noteMidi() != ScoreModelIndex::Unset) {
        replaced = index().note();
        if (replaced == nullptr)
            return std::nullopt;
    }
    Placement placement = placementOf(std::move(replaced), _midi);
    placement.to->spelling = spellingNumber(_spelling);
    placement.to->string = Note::Unset;
    placement.to->fret = Note::Unset;
    // Bowed strings play above the fingerboard too: such a note has no string.
    const bool isBowed = staff.tuning().instrument() >= GuitarTuning::Violin;
    if (staff.isFretted() && !findString(staff, beat, placement) && !isBowed)
        return std::nullopt;
    return placement;
}

bool SetMIDINote::findString(const Staff &staff, const Beat &beat, Placement &placement)
{
    NotePosition &to = *placement.to;
    const int kept = placement.replaced != nullptr ? placement.replaced->string() : Note::Unset;
    const int keptFret = fretOfPitch(staff, kept, to.midi);
    if (keptFret >= 0) {
        to.string = static_cast<std::int8_t>(kept);
        to.fret = static_cast<std::int8_t>(keptFret);
        return true;
    }
    for (int string = 0; string < static_cast<int>(staff.tuning().stringCount()); ++string) {
        const int fret = fretOfPitch(staff, string, to.midi);
        const bool isFree = string == kept || beat.noteOnString(string) == nullptr;
        if (fret >= 0 && isFree && (to.fret < 0 || fret < to.fret)) {
            to.string = static_cast<std::int8_t>(string);
            to.fret = static_cast<std::int8_t>(fret);
        }
    }
    return to.fret >= 0;
}

} // namespace zarn::cmd
