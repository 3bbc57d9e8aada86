// SPDX-License-Identifier: MIT
#include <ZarnCore/model/StaffLineOfNote.h>

#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/music/ZarnMusic.h>

namespace zarn {
namespace {

ClefType clefOver(const Beat &beat, const Bar &bar)
{
    if (bar.clefChanges().empty())
        return bar.clef();
    const auto voice = beat.parentVoice();
    return bar.clefAt(voice ? voice->beatDrawingOffset(beat) : utils::rational());
}

bool isUnpitched(const Bar &bar)
{
    const auto staff = bar.parentStaff();
    const auto track = staff ? staff->track() : nullptr;
    return track && InstrumentSet::isUnpitched(track->type());
}

} // namespace

std::optional<int> staffLineOf(const Note &note, const Beat &beat, const Bar &bar)
{
    if (note.staffLine() != Note::NoStaffLine)
        return note.staffLine();
    const int midi = Music::midi(note);
    if (midi == Note::Unset || isUnpitched(bar))
        return std::nullopt;
    const int accidentals = Music::drawingKeySignatureForBar(bar).accidentalCount();
    const core::Pitch pitch = Music::computePitchAccordingToMidi(note, midi, accidentals);
    const Ottavia ottavia = beat.ottavia() != Ottavia::None ? beat.ottavia() : bar.ottavia();
    return Music::staffLineOfNote(PitchClass::fromPitch(pitch).note(), clefOver(beat, bar),
                                  pitch.octave())
        - 7 * Music::ottaviaOctaves(ottavia);
}

} // namespace zarn
