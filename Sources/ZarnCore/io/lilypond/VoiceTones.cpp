// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/VoiceTones.h>

#include <ZarnCore/io/lilypond/DrumTable.h>
#include <ZarnCore/io/lilypond/StaffContext.h>
#include <ZarnCore/io/lilypond/Words.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/music/ZarnMusic.h>

#include <algorithm>

namespace zarn::lilypond {

namespace {

constexpr int octave = 12;

} // namespace

std::string VoiceTones::toneText(const Note &note, const VoiceBeat &place) const
{
    if (_context.drums != nullptr)
        return _context.drums->nameOf(note, *place.beat, *place.bar);
    const int midi = Music::midi(note);
    if (midi < 0)
        return {};
    const int fifths = Music::drawingKeySignatureForBar(*place.bar).accidentalCount();
    const core::Pitch written = Music::computePitchAccordingToMidi(note, midi, fifths);
    const std::string text = pitchText(
        {written.naturalStep(), written.alteration(), written.octave() + _context.shift / octave});
    switch (note.accidentalDisplay()) {
    case AccidentalDisplay::Shown:
        return text + '!';
    case AccidentalDisplay::Parentheses:
    case AccidentalDisplay::Brackets:
        return text + '?';
    default:
        return text;
    }
}

std::vector<VoiceTones::Tone> VoiceTones::of(const VoiceBeat &place) const
{
    std::vector<Tone> tones;
    for (const auto &note : place.beat->notes()) {
        const std::string text = toneText(*note, place);
        if (text.empty())
            lose(_context, "note without a pitch", place);
        else
            tones.push_back({note.get(), text});
    }
    return tones;
}

std::string VoiceTones::tieText(std::size_t index, const Tone &tone) const
{
    const auto plain = [](std::string text) {
        while (!text.empty() && (text.back() == '!' || text.back() == '?'))
            text.pop_back();
        return text;
    };
    const auto leadsTo = [&](const VoiceBeat *to) {
        if (to == nullptr)
            return false;
        const auto tones = of(*to);
        return std::any_of(tones.begin(), tones.end(), [&](const Tone &other) {
            return other.note->isTied() && plain(other.text) == plain(tone.text);
        });
    };
    std::string text;
    if (tone.note->isTieOrigin())
        text = leadsTo(_beats.behind(index)) ? "~" : "\\laissezVibrer";
    if (!tone.note->isTied())
        return text;
    const VoiceBeat *const before = index > 0 ? &_beats[index - 1] : nullptr;
    const bool hasOrigin = before != nullptr && _beats.behind(index - 1) != nullptr
        && std::any_of(before->beat->notes().begin(), before->beat->notes().end(),
                       [&](const auto &other) {
                           return other->isTieOrigin()
                               && plain(toneText(*other, *before)) == plain(tone.text);
                       });
    return hasOrigin ? text : text + "\\repeatTie";
}

/// A slide to the next note on the string; of a chord only the notes that slide.
std::string VoiceTones::slideText(std::size_t index, std::string &command) const
{
    const VoiceBeat &place = _beats[index];
    const auto slides = [](const Note &note) {
        return note.slideOut() == SlideOut::Shift || note.slideOut() == SlideOut::Legato;
    };
    const auto &notes = place.beat->notes();
    if (std::none_of(notes.begin(), notes.end(), [&](const auto &note) { return slides(*note); }))
        return {};
    const VoiceBeat *const next = _beats.behind(index);
    if (next == nullptr || !next->beat->hasNotes()) {
        lose(_context, "slide to a note behind a rest", place);
        return {};
    }
    const auto from = of(place);
    const auto to = of(*next);
    std::string map;
    for (std::size_t i = 0; i < from.size(); ++i) {
        if (!slides(*from[i].note))
            continue;
        std::size_t aim = std::min(i, to.size() - 1);
        for (std::size_t j = 0; j < to.size(); ++j)
            if (from[i].note->string() >= 0 && to[j].note->string() == from[i].note->string())
                aim = j;
        map += '(' + std::to_string(i) + " . " + std::to_string(aim) + ')';
    }
    if (map.empty() || to.empty())
        return {};
    if (from.size() > 1 || to.size() > 1)
        command += "\\once \\set glissandoMap = #'(" + map + ") ";
    return "\\glissando";
}

std::string VoiceTones::strumText(const VoiceBeat &place, std::string &command)
{
    const Beat &beat = *place.beat;
    std::string kind;
    if (beat.isNonArpeggio())
        kind = "\\arpeggioBracket ";
    else if (beat.arpeggioDirection() != Direction::None)
        kind = beat.arpeggioDirection() == Direction::Up ? "\\arpeggioNormal "
                                                         : "\\arpeggioArrowDown ";
    else if (beat.brushDirection() != Direction::None)
        kind = beat.brushDirection() == Direction::Down ? "\\arpeggioArrowUp "
                                                        : "\\arpeggioArrowDown ";
    if (kind.empty())
        return {};
    if (of(place).size() < 2) {
        lose(_context, "arpeggio over several staves or voices", place);
        return {};
    }
    if (kind != (_strum.empty() ? "\\arpeggioNormal " : _strum))
        command += kind;
    _strum = kind;
    return "\\arpeggio";
}

/// The open string of a note as the score writes it; none where it names no string.
std::optional<int> VoiceTones::openOf(const Note &note, const std::vector<int> &strings) const
{
    const auto string = static_cast<std::size_t>(note.string());
    if (_context.drums != nullptr || note.string() < 0 || string >= strings.size())
        return std::nullopt;
    return strings[string] - _context.shift;
}

bool VoiceTones::isOnItsString(const Note &note) const
{
    const auto open = openOf(note, _context.tablatureStrings);
    return open && Music::midi(note) >= *open;
}

/// Tablature works frets out by itself, from pitches and strings.
std::string VoiceTones::fretText(const Note &note, const VoiceBeat &place) const
{
    const auto open = openOf(note, _context.openStrings);
    if (!open || note.isDead() || !_context.track.notations().tablature)
        return {};
    const int midi = Music::midi(note);
    const int wanted = note.fret() >= 0 ? note.fret() : midi - *open;
    if (wanted == midi - *openOf(note, _context.tablatureStrings))
        return {};
    if (wanted < 0) {
        lose(_context, "note below the string that it names", place);
        return {};
    }
    return "\\tweak TabNoteHead.text " + quoted(std::to_string(wanted)) + ' ';
}

} // namespace zarn::lilypond
