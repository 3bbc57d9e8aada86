// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/SpelledPitch.h>

#include <ZarnCore/model/ZarnNote.h>
#include <ZarnCore/model/notes/ZarnWrittenPitch.h>
#include <ZarnCore/music/ZarnPitch.h>

namespace zarn::io {

namespace {

constexpr int semitoneOfStep[] = {0, 2, 4, 5, 7, 9, 11};
constexpr int semitones = 12;

} // namespace

SpelledPitch spelledPitch(const Note &note, int midi, int fifths)
{
    SpelledPitch pitch;
    if (const auto spelling = note.spelling()) {
        pitch.step = static_cast<int>(spelling->note().value());
        pitch.alter = spelling->accidental().alteration();
        const int natural = midi - pitch.alter - semitoneOfStep[pitch.step];
        pitch.octave = natural / semitones - 1;
        if (natural % semitones == 0)
            return pitch;
    }
    const auto written = writtenPitch(note, midi, fifths);
    pitch.step = 0;
    while (semitoneOfStep[pitch.step] != written.naturalStep())
        ++pitch.step;
    pitch.alter = written.alteration();
    pitch.octave = written.octave() - 1;
    return pitch;
}

SpelledPitch PitchSpelling::of(const Note &note, int midi, int fifths)
{
    if (midi < 0 || midi >= static_cast<int>(keyCount) || note.spelling())
        return spelledPitch(note, midi, fifths);
    if (fifths != _fifths)
        _known.reset();
    _fifths = fifths;
    const auto key = static_cast<std::size_t>(midi);
    if (!_known[key])
        _usual[key] = spelledPitch(note, midi, fifths);
    _known.set(key);
    return _usual[key];
}

} // namespace zarn::io
