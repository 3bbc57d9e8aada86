// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/StaffLineOfNote.h>

#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/music/ZarnMusic.h>

namespace zarn {

ClefType clefOver(const Beat &beat, const Bar &bar)
{
    if (bar.clefChanges().empty())
        return bar.clef();
    const auto voice = beat.parentVoice();
    return bar.clefAt(voice ? voice->beatDrawingOffset(beat) : utils::rational());
}

namespace {

std::optional<int> lineOfArticulation(const Note &note, const Track &track)
{
    // A drum that only has a key stands where the key enters it.
    const bool isByKey = note.percussionArticulation() == Note::Unset && note.midi() != Note::Unset
        && InstrumentSet::isUnpitched(track.type());
    if (note.percussionArticulation() == Note::Unset && !isByKey)
        return std::nullopt;
    const auto set = track.instrumentSet();
    if (!set)
        return std::nullopt;
    const int index =
        isByKey ? set->indexOfArticulationWithMidi(note.midi()) : note.percussionArticulation();
    const auto number = static_cast<std::size_t>(index);
    if (index < 0 || number >= set->articulations().size())
        return std::nullopt;
    return set->articulations()[number].staffLine();
}

} // namespace

std::optional<int> staffLineOf(const Note &note, const Beat &beat, const Bar &bar)
{
    if (note.staffLine() != Note::NoStaffLine)
        return note.staffLine();
    const auto staff = bar.parentStaff();
    const auto track = staff ? staff->track() : nullptr;
    if (const auto line = track ? lineOfArticulation(note, *track) : std::nullopt)
        return line;
    const int midi = writtenMidi(note);
    if (midi == Note::Unset || (track && InstrumentSet::isUnpitched(track->type())))
        return std::nullopt;
    const int accidentals = writtenKeySignature(bar).accidentalCount();
    const core::Pitch pitch = writtenPitch(note, midi, accidentals);
    const int octaves =
        Music::ottaviaOctaves(bar.ottavia()) + Music::ottaviaOctaves(beat.ottavia());
    return Music::staffLineOfNote(PitchClass::fromPitch(pitch).note(), clefOver(beat, bar),
                                  pitch.octave())
        - 7 * octaves;
}

} // namespace zarn
