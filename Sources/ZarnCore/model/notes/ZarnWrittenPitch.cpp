// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/ZarnWrittenPitch.h>

#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnNote.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/music/ZarnMusic.h>
#include <ZarnCore/music/ZarnTone.h>

#include <algorithm>

namespace zarn {

namespace {

std::shared_ptr<Bar> barOf(const Note &note)
{
    const auto beat = note.parentBeat();
    const auto voice = beat ? beat->parentVoice() : nullptr;
    return voice ? voice->parentBar() : nullptr;
}

/// The fret, counted from the nut, at which the capo holds a string; 0 without one. A short drone
/// string lies beside the capo.
unsigned capoOf(const Staff &staff, unsigned string)
{
    const auto track = staff.track();
    const auto model = track ? track->parentScoreModel() : nullptr;
    if ((model && model->ignoreCapo()) || (string == 0 && staff.hasShortDroneString()))
        return 0;
    const auto &partial = staff.partialCapoStringFlags();
    const bool isHeldByBoth = string < partial.size() && partial[string];
    return isHeldByBoth ? std::max(staff.capoFret(), staff.partialCapoFret()) : staff.capoFret();
}

} // namespace

int writtenMidi(const Note &note)
{
    if (note.midi() != Note::Unset || note.string() == Note::Unset || note.fret() == Note::Unset)
        return note.midi();
    const auto bar = barOf(note);
    const auto staff = bar ? bar->parentStaff() : nullptr;
    const auto string = static_cast<unsigned>(note.string());
    if (!staff || string >= staff->tuning().stringCount())
        return Note::Unset;
    const auto track = staff->track();
    const int sounding =
        staff->tuning().midi(string, note.fret()) + static_cast<int>(capoOf(*staff, string));
    return sounding - (track ? track->transpositionOffset() : 0);
}

NoteName writtenNoteName(const Note &note)
{
    const int midi = writtenMidi(note);
    if (midi == Note::Unset)
        return {};
    const auto bar = barOf(note);
    const int accidentals = bar ? writtenKeySignature(*bar).accidentalCount() : 0;
    return PitchClass::fromPitch(writtenPitch(note, midi, accidentals)).note();
}

core::Pitch writtenPitch(const Note &note, int midi, int keyAccidentalCount)
{
    const auto spelling = note.spelling();
    const Accidental wish = spelling ? spelling->accidental().accidentalValue() : Accidental::None;
    const NoteAccidental accidental(Music::validateForcedAccidentalForMidi(
        midi, wish, keyAccidentalCount >= 0, keyAccidentalCount));
    const int natural = midi - accidental.alteration();
    const int step = Tone(natural).value();
    return core::Pitch(step, accidental.alteration(), (natural - step) / 12);
}

KeySignature writtenKeySignature(const Bar &bar)
{
    const auto masterBar = bar.masterBar();
    if (!masterBar)
        return KeySignature();
    const auto staff = bar.parentStaff();
    const auto track = staff ? staff->track() : nullptr;
    const int offset = track ? track->transpositionOffset() : 0;
    return Music::transposedKeySignature(masterBar->concertKeySignature(), -(offset % 12));
}

} // namespace zarn
