// SPDX-License-Identifier: MIT
#include <ZarnCore/music/ZarnMusic.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/music/ZarnSpellingTables.h>
#include <ZarnCore/music/ZarnTone.h>

#include <array>

namespace zarn {

namespace {

/// Letters and octaves on one scale: C of octave 0 is 0, D is 1, C of octave 1 is 7.
constexpr int placeOf(int letter, int octave) noexcept
{
    return spelling::letterCount * octave + letter;
}

constexpr int letterOf(int place) noexcept
{
    return spelling::wrapped(place, spelling::letterCount);
}

constexpr int octaveOf(int place) noexcept
{
    return (place - letterOf(place)) / spelling::letterCount;
}

constexpr int midiOf(int place) noexcept
{
    return 12 * octaveOf(place)
        + spelling::naturalSemitones[static_cast<std::size_t>(letterOf(place))];
}

constexpr int trebleBottom = placeOf(2, 5);

/// What the bottom line of each clef sounds: E, G, F and D.
constexpr std::array<int, 6> bottomLines = {trebleBottom,  trebleBottom,  placeOf(4, 3),
                                            placeOf(3, 4), placeOf(1, 4), trebleBottom};
static_assert(static_cast<std::size_t>(ClefType::Neutral) + 1 == bottomLines.size());
static_assert(midiOf(bottomLines[static_cast<std::size_t>(ClefType::G2)] + 2) == 67, "G on line 2");
static_assert(midiOf(bottomLines[static_cast<std::size_t>(ClefType::F4)] + 6) == 53, "F on line 4");
static_assert(midiOf(bottomLines[static_cast<std::size_t>(ClefType::C3)] + 4) == 60, "C on line 3");
static_assert(midiOf(bottomLines[static_cast<std::size_t>(ClefType::C4)] + 6) == 60, "C on line 4");

/// The natural note that an alteration turns into a key, or nothing where there is none.
std::optional<int> placeOfMidi(int midi, int alteration) noexcept
{
    const Tone natural(spelling::wrapped(midi, 12) - alteration);
    for (int letter = 0; letter < spelling::letterCount; ++letter)
        if (spelling::naturalSemitones[static_cast<std::size_t>(letter)] == natural.value()) {
            const int octave = (midi - alteration - natural.value()) / 12;
            return placeOf(letter, octave);
        }
    return std::nullopt;
}

} // namespace

int Music::ottaviaOctaves(Ottavia ottavia) noexcept
{
    return ottavia <= Ottavia::_15mb ? static_cast<int>(Ottavia::None) - static_cast<int>(ottavia)
                                     : 0;
}

int Music::lineOffsetFromClefAndOttavia(ClefType clef, int ottavia)
{
    ZARN_ASSERT_IN("zarn::Music::lineOffsetFromClefAndOttavia", clef <= ClefType::Neutral);
    return bottomLines[static_cast<std::size_t>(clef)] + spelling::letterCount * ottavia;
}

NoteName Music::noteNameFromStaffLine(int staffLine, ClefType clef)
{
    return static_cast<NoteName::Value>(
        letterOf(staffLine + lineOffsetFromClefAndOttavia(clef, 0)));
}

int Music::octaveFromStaffLine(int staffLine, ClefType clef, int ottavia)
{
    return octaveOf(staffLine + lineOffsetFromClefAndOttavia(clef, ottavia));
}

int Music::midiFromStaffLine(int staffLine, ClefType clef, int ottavia)
{
    return midiOf(staffLine + lineOffsetFromClefAndOttavia(clef, ottavia));
}

int Music::staffLineOfNote(NoteName name, ClefType clef, int octave)
{
    ZARN_ASSERT_IN("zarn::Music::staffLineOfNote", name.isValid());
    return placeOf(static_cast<int>(name.value()), octave) - lineOffsetFromClefAndOttavia(clef, 0);
}

int Music::computeStaffLineWithMidi(int midi, ClefType clef, int ottavia)
{
    const int alteration = accidentalFromMidi(midi, true).alteration();
    return placeOfMidi(midi, alteration).value() - lineOffsetFromClefAndOttavia(clef, ottavia);
}

int Music::staffLineFromMidiAndAccidental(int midi, ClefType clef, int ottavia,
                                          Accidental accidental)
{
    if (accidental != Accidental::None)
        if (const auto place = placeOfMidi(midi, NoteAccidental(accidental).alteration()))
            return *place - lineOffsetFromClefAndOttavia(clef, ottavia);
    return computeStaffLineWithMidi(midi, clef, ottavia);
}

} // namespace zarn
