// SPDX-License-Identifier: MIT
#include <ZarnCore/io/text/NoteText.h>

#include <ZarnCore/music/ZarnDrumKeys.h>

#include <array>
#include <cctype>
#include <cstdlib>

namespace zarn::io::text {

namespace {

constexpr std::string_view letters = "CDEFGAB";
constexpr std::array<int, 7> semitones = {0, 2, 4, 5, 7, 9, 11};

/// Place of each letter in the circle of fifths, C at 0.
constexpr std::array<int, 7> fifths = {0, 2, 4, -1, 1, 3, 5};

struct LengthLetter {
    char letter;
    RhythmValue::NoteValue value;
};

constexpr std::array<LengthLetter, 7> lengthLetters = {{
    {'w', RhythmValue::NoteValue::Whole},
    {'h', RhythmValue::NoteValue::Half},
    {'q', RhythmValue::NoteValue::Quarter},
    {'e', RhythmValue::NoteValue::Eighth},
    {'s', RhythmValue::NoteValue::Sixteenth},
    {'t', RhythmValue::NoteValue::ThirtySecond},
    {'x', RhythmValue::NoteValue::SixtyFourth},
}};

int letterIndex(char letter) noexcept
{
    const auto at =
        letters.find(static_cast<char>(std::toupper(static_cast<unsigned char>(letter))));
    return at == std::string_view::npos ? -1 : static_cast<int>(at);
}

/// Semitones of "##", "#", "b" and "bb" behind a letter; how many signs there are in `count`.
int accidentalAt(const TextScanner &scanner, std::size_t at, std::size_t &count) noexcept
{
    const char sign = scanner.peek(at);
    count = 0;
    if (sign == '#' || sign == 'b')
        count = scanner.peek(at + 1) == sign ? 2 : 1;
    return sign == 'b' ? -static_cast<int>(count) : static_cast<int>(count);
}

} // namespace

bool isNamedPitch(const TextScanner &scanner) noexcept
{
    std::size_t signs = 0;
    if (letterIndex(scanner.peek()) < 0)
        return false;
    accidentalAt(scanner, 1, signs);
    return scanner.isDigit(1 + signs);
}

NamedPitch takeNamedPitch(TextScanner &scanner)
{
    const std::size_t start = scanner.place();
    if (!isNamedPitch(scanner))
        scanner.failExpecting("a note name with octave such as c4 or f#5");
    const int letter = letterIndex(scanner.peek());
    std::size_t signs = 0;
    const int alteration = accidentalAt(scanner, 1, signs);
    for (std::size_t i = 0; i <= signs; ++i)
        scanner.take(scanner.peek());
    const int octave = static_cast<int>(scanner.takeNumber("an octave", 0, 9));
    const int midi = 12 * (octave + 1) + semitones[static_cast<std::size_t>(letter)] + alteration;
    if (midi < 0 || midi > 127)
        scanner.failAt(start, "the note lies outside the MIDI keys 0 to 127");
    return {PitchClass(NoteName(static_cast<NoteName::Value>(letter)),
                       NoteAccidental(static_cast<NoteAccidental::Value>(alteration + 2))),
            midi};
}

void takeLength(TextScanner &scanner, RhythmValue &rhythm)
{
    for (const LengthLetter &length : lengthLetters)
        if (scanner.take(length.letter)) {
            rhythm = RhythmValue(length.value);
            break;
        }
    unsigned dots = 0;
    while (scanner.take('.'))
        ++dots;
    if (dots > 3)
        scanner.failAt(scanner.place(), "a note has at most three dots");
    if (dots > 0)
        rhythm.setAugmentationDot(dots);
    if (!scanner.take('/'))
        return;
    const unsigned notes = scanner.takeNumber("a number of tuplet notes", 2, 255);
    unsigned time = 1; // the largest power of two below the number of notes
    while (time * 2 < notes)
        time *= 2;
    if (scanner.take(':'))
        time = scanner.takeNumber("the time of a tuplet", 2, 255);
    rhythm.setPrimaryTupletRatio(
        {static_cast<std::uint8_t>(notes), static_cast<std::uint8_t>(time)});
}

int takeDrum(TextScanner &scanner) noexcept
{
    const auto word = drumWordAt(scanner.rest());
    for (std::size_t i = 0; word && i < word->length; ++i)
        scanner.take(scanner.peek());
    return word ? word->key : -1;
}

NamedKey takeKey(TextScanner &scanner)
{
    const std::size_t start = scanner.place();
    const int letter = letterIndex(scanner.peek());
    if (letter < 0)
        scanner.failExpecting("a key such as Bb, or F#m for minor");
    std::size_t signs = 0;
    const int alteration = accidentalAt(scanner, 1, signs);
    for (std::size_t i = 0; i <= signs; ++i)
        scanner.take(scanner.peek());
    const bool isMajor = !scanner.take('m');
    const int count = fifths[static_cast<std::size_t>(letter)] + 7 * alteration - (isMajor ? 0 : 3);
    if (std::abs(count) > 7)
        scanner.failAt(start, "the key has more than seven sharps or flats");
    return {count, isMajor};
}

} // namespace zarn::io::text
