// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/SoundingKey.h>

#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/model/notes/ZarnFretting.h>
#include <ZarnCore/model/notes/ZarnUnpitched.h>
#include <ZarnCore/model/notes/ZarnWrittenPitch.h>

namespace zarn::playback {

namespace {

constexpr int octave = 12;
constexpr int highestKey = 127;

/// The side stick of General MIDI: a knock that fits any unknown instrument.
constexpr int unspecificPercussion = 37;

SoundingKey percussionKey(const Note &note, const Track &track)
{
    if (note.midi() != Note::Unset)
        return {note.midi(), true, false};
    const auto set = track.instrumentSet();
    const auto index = static_cast<std::size_t>(note.percussionArticulation());
    if (set && note.percussionArticulation() != Note::Unset
        && index < set->articulations().size()) {
        const int key = set->articulations()[index].outputMidiNumber();
        if (key >= 0 && key <= highestKey)
            return {key, true, false};
    }
    return {unspecificPercussion, true, true};
}

} // namespace

int withinMidi(int key) noexcept
{
    while (key < 0)
        key += octave;
    while (key > highestKey)
        key -= octave;
    return key;
}

std::optional<SoundingKey> soundingKey(const Note &note, const Track &track)
{
    if (isUnpitchedNote(note, track))
        return percussionKey(note, track);
    const int written = note.midi() != Note::Unset ? note.midi() : writtenMidi(note);
    if (written == Note::Unset)
        return std::nullopt;
    return SoundingKey{withinMidi(written + track.transpositionOffset()), false, false};
}

int keyOfHarmonic(const Note &note, const Staff &staff, const Track &track, int key)
{
    const Harmonic harmonic = note.harmonic();
    if (harmonic.type == HarmonicType::NoHarmonic)
        return key;
    const int above = Harmonic::semitones(harmonic.partial);
    if (harmonic.type != HarmonicType::Natural)
        return withinMidi(key + above);
    const int open =
        note.string() == Note::Unset ? Note::Unset : writtenPitch(staff, note.string(), 0);
    return open == Note::Unset ? key : withinMidi(open + track.transpositionOffset() + above);
}

} // namespace zarn::playback
