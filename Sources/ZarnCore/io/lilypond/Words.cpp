// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/Words.h>

#include <ZarnCore/music/ZarnPitchClass.h>

#include <array>
#include <cstdlib>
#include <string_view>

namespace zarn::lilypond {

namespace {

/// By semitones above C; empty for black keys.
constexpr std::array<const char *, 12> stepLetters = {"c", "",  "d", "",  "e", "f",
                                                      "",  "g", "",  "a", "",  "b"};

constexpr int octaveWithoutMarks = 4; // of middle C is 5, which has one mark

/// By `RhythmValue::NoteValue`.
constexpr std::array<const char *, 11> valueTexts = {"\\longa", "\\breve", "1",  "2",   "4",  "8",
                                                     "16",      "32",      "64", "128", "256"};

std::string alterationText(const std::string &letter, int alteration)
{
    if (alteration > 0)
        return alteration == 1 ? "is" : "isis";
    if (alteration == 0)
        return {};
    const std::string first = letter == "e" || letter == "a" ? "s" : "es";
    return alteration == -1 ? first : first + "es";
}

std::string fractionText(const utils::rational &value)
{
    const std::string whole = std::to_string(value.numerator());
    return value.isInteger() ? whole : whole + '/' + std::to_string(value.denominator());
}

struct SignMarkup {
    const char *utf8;
    const char *markup;
};
constexpr std::array accidentalMarkups = {
    SignMarkup{"\u266d", "\\smaller \\flat"},
    SignMarkup{"\u266f", "\\smaller \\sharp"},
    SignMarkup{"\u266e", "\\smaller \\natural"},
};

/// How many bytes a sign of a music font has that begins here; 0 where none does. Fonts for texts
/// lack the characters.
std::size_t fontSignAt(const std::string &utf8, std::size_t at)
{
    const auto lead = static_cast<unsigned char>(utf8[at]);
    if (at + 2 < utf8.size()
        && (lead == 0xee || (lead == 0xef && static_cast<unsigned char>(utf8[at + 1]) < 0xa4)))
        return 3;
    constexpr std::string_view opening = "<sym>";
    constexpr std::string_view closing = "</sym>";
    if (utf8.compare(at, opening.size(), opening) != 0)
        return 0;
    const auto end = utf8.find(closing.front(), at + opening.size());
    const bool isClosed =
        end != std::string::npos && utf8.compare(end, closing.size(), closing) == 0;
    return isClosed ? end + closing.size() - at : 0;
}

} // namespace

bool hasFontSigns(const std::string &utf8)
{
    for (std::size_t i = 0; i < utf8.size(); ++i)
        if (fontSignAt(utf8, i) != 0)
            return true;
    return false;
}

std::string quoted(const std::string &utf8)
{
    constexpr unsigned char firstPrintable = 0x20;
    std::string text = "\"";
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        if (const auto sign = fontSignAt(utf8, i); sign != 0) {
            i += sign - 1;
            continue;
        }
        const char character = utf8[i];
        if (character == '"' || character == '\\')
            text += '\\';
        text += static_cast<unsigned char>(character) < firstPrintable ? ' ' : character;
    }
    return text + '"';
}

std::string pitchText(const core::Pitch &pitch)
{
    const std::string letter = stepLetters.at(static_cast<std::size_t>(pitch.naturalStep()));
    const int marks = pitch.octave() - octaveWithoutMarks;
    return letter + alterationText(letter, pitch.alteration())
        + std::string(static_cast<std::size_t>(std::abs(marks)), marks < 0 ? ',' : '\'');
}

std::string keyText(int midi, bool asFlat)
{
    const PitchClass spelling = PitchClass::fromPitch(midi, asFlat);
    const int octave = (midi - spelling.alterationSemitones()) / 12;
    return pitchText(PitchClass::toPitch(spelling, octave));
}

std::string valueText(const RhythmValue &rhythm)
{
    return valueTexts.at(static_cast<std::size_t>(rhythm.getNoteValue()))
        + std::string(rhythm.getAugmentationDot(), '.');
}

std::string gapText(Gap gap, const utils::rational &quarters)
{
    const std::string letter(1, static_cast<char>(gap));
    const utils::rational wholes = quarters / utils::rational(4);
    const std::int64_t parts = wholes.denominator();
    constexpr std::int64_t shortest = 64;
    if (parts <= shortest && (parts & (parts - 1)) == 0) {
        if (wholes.numerator() == 1)
            return letter + std::to_string(parts);
        if (wholes.numerator() == 3 && parts > 1)
            return letter + std::to_string(parts / 2) + '.';
    }
    return letter + "1*" + fractionText(wholes);
}

std::string momentText(const utils::rational &quarters)
{
    return "#(ly:make-moment " + fractionText(quarters / utils::rational(4)) + ')';
}

std::string romanNumber(unsigned number)
{
    struct Numeral {
        unsigned value;
        const char *text;
    };
    constexpr std::array numerals = {Numeral{1000, "M"}, Numeral{900, "CM"}, Numeral{500, "D"},
                                     Numeral{400, "CD"}, Numeral{100, "C"},  Numeral{90, "XC"},
                                     Numeral{50, "L"},   Numeral{40, "XL"},  Numeral{10, "X"},
                                     Numeral{9, "IX"},   Numeral{5, "V"},    Numeral{4, "IV"},
                                     Numeral{1, "I"}};
    std::string text;
    for (const Numeral &numeral : numerals)
        for (; number >= numeral.value; number -= numeral.value)
            text += numeral.text;
    return text;
}

std::string symbolMarkup(const std::string &utf8)
{
    std::string parts;
    std::string plain;
    const auto flush = [&] {
        if (!plain.empty())
            parts += ' ' + quoted(plain);
        plain.clear();
    };
    for (std::size_t i = 0; i < utf8.size();) {
        std::size_t length = 1;
        for (const SignMarkup &sign : accidentalMarkups) {
            const std::string text = sign.utf8;
            if (utf8.compare(i, text.size(), text) == 0) {
                flush();
                parts += ' ' + std::string(sign.markup);
                length = text.size();
            }
        }
        if (length == 1)
            plain += utf8[i];
        i += length;
    }
    flush();
    return "\\markup \\concat {" + parts + " }";
}

} // namespace zarn::lilypond
