// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/music/ZarnSpellingTables.h>
#include <ZarnCore/music/ZarnTone.h>

#include <array>
#include <cstddef>
#include <optional>

/// Where notes stand on a staff, whatever alters them.
namespace zarn::staffPlaces {

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
inline std::optional<int> placeOfMidi(int midi, int alteration) noexcept
{
    const Tone natural(spelling::wrapped(midi, 12) - alteration);
    for (int letter = 0; letter < spelling::letterCount; ++letter)
        if (spelling::naturalSemitones[static_cast<std::size_t>(letter)] == natural.value()) {
            const int octave = (midi - alteration - natural.value()) / 12;
            return placeOf(letter, octave);
        }
    return std::nullopt;
}

} // namespace zarn::staffPlaces
