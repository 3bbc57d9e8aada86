// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetMIDINote.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/notes/ZarnFretting.h>

namespace zarn::cmd {

SetMIDINote::SetMIDINote() : WriteNote(QStringLiteral("SetMIDINote")) { }
SetMIDINote::~SetMIDINote() = default;

bool SetMIDINote::init(Score *score, const ScoreModelIndex &index, int midi)
{
    ZARN_ASSERT_IN("zarn::cmd::SetMIDINote::init", score != NULL);
    addArg(QStringLiteral("StageIndex"), index.toQString());
    addArg(QStringLiteral("Type"), QString::number(midi));
    _midi = midi;
    return midi >= 0 && midi <= highestKey && prepare(score, index);
}

std::optional<WriteNote::Placement> SetMIDINote::placement(const Staff &staff,
                                                           const Beat &beat) const
{
    if (beat.noteWithMidi(_midi) != nullptr)
        return std::nullopt;
    Placement placement;
    placement.midi = _midi;
    if (index().noteMidi() != ScoreModelIndex::Unset) {
        placement.replaced = index().note();
        if (placement.replaced == nullptr)
            return std::nullopt;
    }
    // Bowed strings play above the fingerboard too: such a note has no string.
    const bool isBowed = staff.tuning().instrument() >= GuitarTuning::Violin;
    if (staff.isFretted() && !findString(staff, beat, placement) && !isBowed)
        return std::nullopt;
    return placement;
}

bool SetMIDINote::findString(const Staff &staff, const Beat &beat, Placement &placement) const
{
    const int kept = placement.replaced != nullptr ? placement.replaced->string() : Note::Unset;
    const int keptFret = fretOfPitch(staff, kept, _midi);
    if (keptFret >= 0) {
        placement.string = kept;
        placement.fret = keptFret;
        return true;
    }
    for (int string = 0; string < static_cast<int>(staff.tuning().stringCount()); ++string) {
        const int fret = fretOfPitch(staff, string, _midi);
        const bool isFree = string == kept || beat.noteOnString(string) == nullptr;
        if (fret >= 0 && isFree && (placement.fret < 0 || fret < placement.fret)) {
            placement.string = string;
            placement.fret = fret;
        }
    }
    return placement.fret >= 0;
}

} // namespace zarn::cmd
