// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/ChordLine.h>

#include <ZarnCore/chords/ZarnChord.h>
#include <ZarnCore/io/lilypond/Frame.h>
#include <ZarnCore/io/lilypond/TimedLine.h>
#include <ZarnCore/io/lilypond/VoiceBeats.h>
#include <ZarnCore/io/lilypond/Words.h>
#include <ZarnCore/model/ZarnTrack.h>

namespace zarn::lilypond {

namespace {

/// "x;3-3;2-2;o;1-1;o;": frets and fingers from the lowest string up.
std::string diagramText(const ChordDiagram &diagram)
{
    constexpr std::uint8_t thumb = 5;
    std::string text;
    for (std::size_t i = 0; i < diagram.frets.size(); ++i) {
        const int fret = diagram.frets[i];
        if (fret <= 0) {
            text += fret < 0 ? "x;" : "o;";
            continue;
        }
        text += std::to_string(fret);
        const std::uint8_t finger = i < diagram.fingers.size() ? diagram.fingers[i] : 0;
        if (finger != 0 && finger < thumb)
            text += '-' + std::to_string(finger);
        text += ';';
    }
    return text;
}

std::string markupOf(const ChordMark &mark)
{
    const auto chord = chord::Chord::fromText(mark.symbol);
    const std::string symbol = symbolMarkup(chord ? chord->toDisplayText() : mark.symbol);
    if (!mark.diagram || mark.diagram->frets.empty())
        return symbol;
    return "\\markup \\center-column { " + symbol.substr(std::string("\\markup ").size())
        + " \\fret-diagram-terse " + quoted(diagramText(*mark.diagram)) + " }";
}

/// The tones of a symbol, from the octave of middle C; a c for what is no chord.
std::string tonesOf(const ChordMark &mark)
{
    const auto chord = chord::Chord::fromText(mark.symbol);
    std::string text;
    if (chord) {
        int lowest = 48;
        const auto add = [&](const PitchClass &pitch) {
            int midi = pitch.midi(4);
            while (midi < lowest)
                midi += 12;
            lowest = midi + 1;
            const int octave = (midi - pitch.alterationSemitones()) / 12;
            text += (text.empty() ? "" : " ") + pitchText(PitchClass::toPitch(pitch, octave));
        };
        if (chord->hasBass() && chord->bass() != chord->root())
            add(chord->bass());
        for (const chord::ChordTone &tone : chord->tones())
            if (tone.pitch)
                add(tone.pitch);
    }
    return '<' + (text.empty() ? "c" : text) + '>';
}

} // namespace

std::string chordLineOf(const Track &track, const Frame &frame)
{
    TimedLine line(frame);
    bool hasAny = false;
    for (const auto &staff : track.staves())
        for (unsigned voice = 0; voice < Bar::MaxVoices; ++voice) {
            const VoiceBeats beats(*staff, voice);
            for (const VoiceBeat &place : beats.all()) {
                const ChordMark &mark = place.beat->chord();
                if (mark.isEmpty() || place.bar->index() >= frame.bars.size())
                    continue;
                hasAny = true;
                line.put(place.bar->index(), place.onset,
                         "\\chordSymbol " + markupOf(mark) + ' ' + tonesOf(mark) + "%1");
            }
        }
    return hasAny ? line.toText() : std::string();
}

} // namespace zarn::lilypond
