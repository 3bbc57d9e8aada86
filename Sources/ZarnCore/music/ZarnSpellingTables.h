// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// The look-up tables behind `PitchClass`, `Tone` and `Interval`, computed by the compiler.
///
/// A spelling is a number 0 to 34: letter (C = 0) times 5 plus accidental (double flat = 0). An
/// interval cell is its degree (0 to 12) times 7 plus its quality (doubly diminished = 0).
namespace zarn::spelling {

constexpr int letterCount = 7;
constexpr int accidentalCount = 5;
constexpr int spellingCount = letterCount * accidentalCount;
constexpr int degreeCount = 13;
constexpr int qualityCount = 7;
constexpr int cellCount = degreeCount * qualityCount;

/// Semitones of the letters above C, which are the sizes of the plain degrees as well.
constexpr std::array<int, letterCount> naturalSemitones = {0, 2, 4, 5, 7, 9, 11};
constexpr std::array<int, letterCount> plainSizes = naturalSemitones;

struct Cell {
    bool isValid;
    const char *name;
    int semitones;
};

constexpr Cell none = {false, "na", 0};

/// Names and sizes of the intervals; the compound degrees have perfect forms, and two rows have no
/// degree name but a valid cell.
constexpr std::array<Cell, cellCount> cells = {{
    // Unison
    {true, "ddim1", -2},
    {true, "dim1", -1},
    none,
    {true, "P1", 0},
    none,
    {true, "aug1", 1},
    {true, "daug1", 2},
    // Second
    none,
    {true, "dim2", 0},
    {true, "m2", 1},
    none,
    {true, "M2", 2},
    {true, "aug2", 3},
    {true, "daug2", 4},
    // Third
    none,
    {true, "dim3", 2},
    {true, "m3", 3},
    none,
    {true, "M3", 4},
    {true, "aug3", 4},
    {true, "daug3", 5},
    // Fourth
    {true, "ddim4", 3},
    {true, "dim4", 4},
    none,
    {true, "P4", 5},
    none,
    {true, "aug4", 6},
    {true, "daug4", 7},
    // Fifth
    {true, "ddim5", 5},
    {true, "dim5", 6},
    none,
    {true, "P5", 7},
    none,
    {true, "aug5", 8},
    {true, "daug5", 9},
    // Sixth
    none,
    {true, "dim6", 7},
    {true, "m6", 8},
    none,
    {true, "M6", 9},
    {true, "aug6", 10},
    {true, "daug6", 11},
    // Seventh
    none,
    {true, "dim7", 9},
    {true, "m7", 10},
    none,
    {true, "M7", 11},
    {true, "aug7", 12},
    {true, "daug7", 13},
    // Octave
    {true, "ddim8", 10},
    {true, "dim8", 11},
    none,
    {true, "P8", 12},
    none,
    {true, "aug8", 13},
    {true, "daug8", 14},
    // Ninth
    {true, "ddim9", 12},
    {true, "dim9", 13},
    none,
    {true, "P9", 14},
    none,
    {true, "aug9", 15},
    {true, "daug9", 16},
    // 9
    none,
    none,
    none,
    {true, "na", 0},
    none,
    none,
    none,
    // Eleventh
    {true, "ddim11", 15},
    {true, "dim11", 16},
    none,
    {true, "P11", 17},
    none,
    {true, "aug11", 18},
    {true, "daug11", 19},
    // 11
    none,
    none,
    none,
    {true, "na", 0},
    none,
    none,
    none,
    // Thirteenth
    {true, "ddim13", 19},
    {true, "dim13", 20},
    none,
    {true, "P13", 21},
    none,
    {true, "aug13", 22},
    {true, "daug13", 23},
}};

constexpr int wrapped(int value, int modulus) noexcept
{
    return (value % modulus + modulus) % modulus;
}

/// Pitch class, 0 to 11, of a spelling.
constexpr int toneOf(int spelling) noexcept
{
    return wrapped(naturalSemitones[static_cast<std::size_t>(spelling / accidentalCount)]
                       + spelling % accidentalCount - 2,
                   12);
}

/// The spelling of a letter with an alteration; past a double accidental the letter moves on, so
/// that the pitch stays right.
constexpr int spell(int letter, int alteration) noexcept
{
    while (alteration > 2) {
        const int next = (letter + 1) % letterCount;
        alteration -= wrapped(naturalSemitones[static_cast<std::size_t>(next)]
                                  - naturalSemitones[static_cast<std::size_t>(letter)],
                              12);
        letter = next;
    }
    while (alteration < -2) {
        const int last = (letter + letterCount - 1) % letterCount;
        alteration += wrapped(naturalSemitones[static_cast<std::size_t>(letter)]
                                  - naturalSemitones[static_cast<std::size_t>(last)],
                              12);
        letter = last;
    }
    return letter * accidentalCount + alteration + 2;
}

using Spellings = std::array<std::uint8_t, spellingCount>;

constexpr Spellings alteredBy(int semitones) noexcept
{
    Spellings table = {};
    for (int i = 0; i < spellingCount; ++i)
        table[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(
            spell(i / accidentalCount, i % accidentalCount - 2 + semitones));
    return table;
}

constexpr Spellings tonesOfSpellings() noexcept
{
    Spellings table = {};
    for (int i = 0; i < spellingCount; ++i)
        table[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(toneOf(i));
    return table;
}

constexpr Spellings tones = tonesOfSpellings();
constexpr Spellings augmented = alteredBy(1);
constexpr Spellings diminished = alteredBy(-1);

/// How many chromatic steps a transposition adds to the plain form of a degree.
constexpr int qualityOffset(int degree, int quality) noexcept
{
    constexpr std::array<int, qualityCount> perfectType = {-2, -1, 0, 0, 0, 1, 2};
    constexpr std::array<int, qualityCount> majorType = {-3, -2, -1, 0, 0, 1, 2};
    const bool isMajorType = degree == 1 || degree == 2 || degree == 5 || degree == 6;
    if (degree == 9 || degree == 11)
        return 0;
    return (isMajorType ? majorType : perfectType)[static_cast<std::size_t>(quality)];
}

constexpr int altered(int spelling, int steps) noexcept
{
    for (; steps > 0; --steps)
        spelling = augmented[static_cast<std::size_t>(spelling)];
    for (; steps < 0; ++steps)
        spelling = diminished[static_cast<std::size_t>(spelling)];
    return spelling;
}

/// The letter `steps` further, up or down, at the plain size of that degree.
constexpr int moved(int spelling, int steps, int direction) noexcept
{
    const int letter = spelling / accidentalCount;
    const int target = wrapped(letter + direction * steps, letterCount);
    const int size = direction * plainSizes[static_cast<std::size_t>(steps)];
    int alteration = naturalSemitones[static_cast<std::size_t>(letter)] + size
        + spelling % accidentalCount - 2 - naturalSemitones[static_cast<std::size_t>(target)];
    alteration = wrapped(alteration + 6, 12) - 6;
    return spell(target, alteration);
}

using Transpositions = std::array<std::array<std::uint8_t, cellCount>, spellingCount>;

constexpr Transpositions transpositions(bool forward) noexcept
{
    Transpositions table = {};
    for (int i = 0; i < spellingCount; ++i)
        for (int cell = 0; cell < cellCount; ++cell) {
            const int degree = cell / qualityCount;
            const int offset = qualityOffset(degree, cell % qualityCount);
            const int result = forward ? altered(moved(i, degree % letterCount, 1), offset)
                                       : moved(altered(i, -offset), degree % letterCount, -1);
            table[static_cast<std::size_t>(i)][static_cast<std::size_t>(cell)] =
                static_cast<std::uint8_t>(result);
        }
    return table;
}

/// Where an interval leads from a spelling, and from where it leads to it.
constexpr Transpositions transposed = transpositions(true);
constexpr Transpositions untransposed = transpositions(false);

/// Spellings of the twelve pitch classes with sharps and with flats for the black keys.
using Chromatic = std::array<std::uint8_t, 12>;

constexpr Chromatic chromatic(int alteration) noexcept
{
    Chromatic table = {};
    for (int tone = 0; tone < 12; ++tone)
        for (int letter = 0; letter < letterCount; ++letter) {
            const int natural = naturalSemitones[static_cast<std::size_t>(letter)];
            if (natural == tone) {
                table[static_cast<std::size_t>(tone)] = static_cast<std::uint8_t>(spell(letter, 0));
                break;
            }
            if (natural + alteration == tone)
                table[static_cast<std::size_t>(tone)] =
                    static_cast<std::uint8_t>(spell(letter, alteration));
        }
    return table;
}

constexpr Chromatic withSharps = chromatic(1);
constexpr Chromatic withFlats = chromatic(-1);

constexpr bool spellingsAreConsistent() noexcept
{
    for (int i = 0; i < spellingCount; ++i) {
        const auto at = static_cast<std::size_t>(i);
        if (toneOf(augmented[at]) != (toneOf(i) + 1) % 12
            || toneOf(diminished[at]) != (toneOf(i) + 11) % 12)
            return false;
    }
    for (int tone = 0; tone < 12; ++tone) {
        const auto at = static_cast<std::size_t>(tone);
        if (toneOf(withSharps[at]) != tone || toneOf(withFlats[at]) != tone)
            return false;
    }
    return true;
}
static_assert(spellingsAreConsistent());

} // namespace zarn::spelling
