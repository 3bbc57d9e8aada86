// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ChordRetuning.h>

#include <ZarnCore/chords/TransposedSymbol.h>
#include <ZarnCore/chords/ZarnChordRecognizer.h>
#include <ZarnCore/chords/ZarnChordTones.h>
#include <ZarnCore/music/ZarnKeyTransposition.h>
#include <ZarnCore/music/ZarnMusic.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <utility>

namespace zarn {

namespace {

constexpr int semitonesOfOctave = 12;

/// MIDI keys by string; nothing for strings that are not played.
using SoundingStrings = std::vector<std::optional<int>>;

SoundingStrings soundOf(const std::vector<std::int8_t> &frets, const GuitarTuning &tuning,
                        const chord::Fretboard &neck)
{
    SoundingStrings pitches(frets.size());
    for (const chord::Course &course : neck.courses()) {
        const unsigned end = course.firstString + course.stringCount;
        for (unsigned string = course.firstString; string < end; ++string)
            if (string < frets.size() && frets[string] >= 0)
                pitches[string] = tuning.midi(string, neck.fretOfDiagram(course, frets[string]));
    }
    return pitches;
}

SoundingStrings openStrings(const GuitarTuning &tuning, const chord::Fretboard &neck)
{
    return soundOf(std::vector<std::int8_t>(tuning.stringCount(), 0), tuning, neck);
}

/// The chord that a text names; nothing for other texts and for "N.C.".
std::optional<chord::Chord> chordOf(const std::string &text)
{
    auto chord = chord::Chord::fromText(text);
    if (chord && chord->isNone())
        chord.reset();
    return chord;
}

/// What a chord is called when other tones sound: as it was, where that is one of their names.
std::string nameFor(const std::string &text, const std::vector<chord::ChordName> &names)
{
    const auto chord = chordOf(text);
    if (!chord)
        return text;
    const auto tones = chord::ChordTones::of(*chord);
    const bool isSame = std::any_of(names.begin(), names.end(), [&](const chord::ChordName &name) {
        return chord::ChordTones::of(name.chord) == tones;
    });
    if (isSame)
        return text;
    return names.empty() ? std::string() : names.front().chord.toText();
}

std::shared_ptr<const ChordDiagram> renamed(const ChordDiagram &diagram, std::string name)
{
    ChordDiagram copy = diagram;
    copy.name = std::move(name);
    return std::make_shared<const ChordDiagram>(std::move(copy));
}

} // namespace

bool ChordRetuning::IsBefore::operator()(const ChordMark &left, const ChordMark &right) const
{
    const auto isLess = [](const ChordDiagram &one, const ChordDiagram &other) {
        return std::tie(one.name, one.frets, one.fingers, one.firstFret)
            < std::tie(other.name, other.frets, other.fingers, other.firstFret);
    };
    if (left.symbol != right.symbol)
        return left.symbol < right.symbol;
    if (left.diagram == nullptr || right.diagram == nullptr)
        return left.diagram == nullptr && right.diagram != nullptr;
    return isLess(*left.diagram, *right.diagram);
}

ChordRetuning::ChordRetuning(const Strings &before, const Strings &after, unsigned fretCount,
                             Retuning retuning)
    : _before(before), _after(after), _neckBefore(before.tuning, before.capos, fretCount),
      _neckAfter(after.tuning, after.capos, fretCount), _fretCount(fretCount),
      _shift(commonShift()), _way(wayFor(retuning))
{
}

ChordRetuning::Way ChordRetuning::wayFor(Retuning retuning) const
{
    if (retuning == Retuning::KeepPitches
        || _before.tuning.stringCount() != _after.tuning.stringCount())
        return Way::Voice;
    if (!_shift)
        return Way::Name;
    return *_shift % semitonesOfOctave == 0 ? Way::Leave : Way::Transpose;
}

/// Semitones that all strings sound higher; nothing when they have gone apart. A short drone string
/// lies beyond most capos: that it stays behind makes no other chord.
std::optional<int> ChordRetuning::commonShift() const
{
    const auto before = openStrings(_before.tuning, _neckBefore);
    const auto after = openStrings(_after.tuning, _neckAfter);
    if (before.size() != after.size())
        return std::nullopt;
    std::optional<int> shift;
    for (std::size_t string = 0; string < before.size(); ++string) {
        const int apart = after[string].value_or(0) - before[string].value_or(0);
        const bool isDrone = string == 0 && _before.tuning.hasShortDroneString()
            && _after.tuning.hasShortDroneString();
        if (isDrone && apart == 0)
            continue;
        if (shift.value_or(apart) != apart)
            return std::nullopt;
        shift = apart;
    }
    return shift;
}

void ChordRetuning::setKey(const KeySignature &key)
{
    if (_key == key)
        return;
    _key = key;
    if (_way == Way::Transpose)
        _interval =
            KeyTransposition(key, Music::transposedKeySignature(key, *_shift % semitonesOfOctave))
                .interval();
    // Other chords are the same in all keys.
    if (_way == Way::Transpose || _way == Way::Name)
        _found.clear();
}

ChordMark ChordRetuning::retuned(const ChordMark &chord)
{
    if (_way == Way::Leave || (_way != Way::Transpose && chord.diagram == nullptr))
        return chord;
    const auto known = _found.find(chord);
    if (known != _found.end())
        return known->second;
    return _found.emplace(chord, find(chord)).first->second;
}

ChordsOfStaff ChordRetuning::retuned(ChordsOfStaff sets)
{
    const auto retuneNames = [this](std::vector<std::string> &names) {
        for (std::string &name : names)
            name = retuned(ChordMark{name, nullptr}).symbol;
    };
    const auto retuneDiagrams = [this](std::vector<ChordDiagram> &diagrams) {
        std::vector<ChordDiagram> kept;
        for (const ChordDiagram &diagram : diagrams) {
            const auto chord =
                retuned(ChordMark{{}, std::make_shared<const ChordDiagram>(diagram)});
            if (chord.diagram != nullptr)
                kept.push_back(*chord.diagram);
        }
        diagrams = std::move(kept);
    };
    retuneNames(sets.names);
    retuneNames(sets.workingNames);
    retuneDiagrams(sets.diagrams);
    retuneDiagrams(sets.workingDiagrams);
    return sets;
}

ChordMark ChordRetuning::find(const ChordMark &chord)
{
    if (_way == Way::Transpose)
        return transposed(chord);
    if (!soundsOtherwise(*chord.diagram))
        return chord;
    return _way == Way::Name ? named(chord) : voiced(chord);
}

/// Whether the strings no longer sound what a diagram was written for. One for other strings has
/// never sounded here.
bool ChordRetuning::soundsOtherwise(const ChordDiagram &diagram) const
{
    const auto &frets = diagram.frets;
    if (frets.size() != _after.tuning.stringCount())
        return _way == Way::Voice;
    return frets.size() == _before.tuning.stringCount()
        && soundOf(frets, _before.tuning, _neckBefore) != soundOf(frets, _after.tuning, _neckAfter);
}

ChordMark ChordRetuning::transposed(const ChordMark &chord) const
{
    ChordMark found = chord;
    found.symbol = chord::transposedSymbol(chord.symbol, _interval);
    if (chord.diagram != nullptr)
        found.diagram =
            renamed(*chord.diagram, chord::transposedSymbol(chord.diagram->name, _interval));
    return found;
}

ChordMark ChordRetuning::named(const ChordMark &chord) const
{
    std::vector<int> pitches;
    for (const auto &pitch : soundOf(chord.diagram->frets, _after.tuning, _neckAfter))
        if (pitch)
            pitches.push_back(*pitch);
    const auto names = chord::ChordRecognizer(_key.value_or(KeySignature())).names(pitches);
    return {nameFor(chord.symbol, names),
            renamed(*chord.diagram, nameFor(chord.diagram->name, names))};
}

ChordMark ChordRetuning::voiced(const ChordMark &chord)
{
    const std::string &name = chord.diagram->name;
    auto diagram = voicingOf(chordOf(chord.symbol) ? chord.symbol : name);
    if (!diagram)
        // A chord that was its diagram alone is named when that goes.
        return {chord.symbol.empty() ? name : chord.symbol, nullptr};
    diagram->name = name;
    return {chord.symbol, std::make_shared<const ChordDiagram>(*std::move(diagram))};
}

/// The best way to play a chord: as it is learned first, else as a hand finds it.
std::optional<ChordDiagram> ChordRetuning::voicingOf(const std::string &symbol)
{
    const auto known = _voicings.find(symbol);
    if (known != _voicings.end())
        return known->second;
    std::optional<ChordDiagram> best;
    if (const auto chord = chordOf(symbol)) {
        auto all = _library.shapes(*chord, _after.tuning, _after.capos, _fretCount);
        if (all.empty())
            all = _library.voicings(*chord, _after.tuning, _after.capos, _fretCount);
        if (!all.empty())
            best = std::move(all.front());
    }
    return _voicings.emplace(symbol, std::move(best)).first->second;
}

} // namespace zarn
