// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <string>

/// Enumerations of signs beside the notes: articulations, beams, syllables, bar lines.
/// The texts are the vocabulary of documents and command arguments; `ZarnTypes.h` says how they
/// are read and printed.
namespace zarn {

/// Articulations of a note, each a bit of a set.
enum class AccentFlag : std::uint8_t {
    Staccato = 1,
    Staccatissimo = 2,
    Accent = 4,
    HeavyAccent = 8,
    Tenuto = 16,
    SoftAccent = 32,
};

/// Whether the accidental of a note is drawn: by the rules of notation, or against them.
enum class AccidentalDisplay : std::uint8_t {
    Auto,
    Shown,
    Parentheses,
    Brackets,
    Hidden,
};

/// The line at the end of a bar. Repeats and double bar lines win over it.
enum class BarLine : std::uint8_t {
    Auto,
    Dashed,
    Dotted,
    Heavy,
    Short,
    Tick,
    None,
};

/// How a meter is written: with both numbers, as C, as C with a stroke, with the upper number
/// alone, or not at all.
enum class MeterSign : std::uint8_t {
    Numbers,
    Common,
    Cut,
    UpperNumber,
    Hidden,
};

/// Whether a beam leads from a beat to the next one.
enum class BeamMode : std::uint8_t {
    Auto,
    Break,
    Join,
};

/// The place of a syllable in its word.
enum class Syllabic : std::uint8_t {
    Single,
    Begin,
    Middle,
    End,
};

/// Dashes that show how far the words at a beat hold: from here, behind those over it or behind
/// those under it, or to here.
enum class TextSpan : std::uint8_t {
    None,
    Begin,
    End,
    BeginBelow,
};

constexpr bool begins(TextSpan span) noexcept
{
    return span == TextSpan::Begin || span == TextSpan::BeginBelow;
}

/// How the curve of a slur is drawn.
enum class SlurLine : std::uint8_t {
    Solid,
    Dashed,
    Dotted,
};

/// Where a slur, a dynamic or a hairpin lies: as the music around it has it, or over or under its
/// notes.
enum class MarkSide : std::uint8_t {
    Auto,
    Above,
    Below,
};
using SlurSide = MarkSide;

/// What joins the staves of a group of tracks at the start of a system.
enum class GroupSymbol : std::uint8_t {
    None,
    Bracket,
    Brace,
    Line,
};

ZARNCORE_EXPORT std::string accentFlagToString(AccentFlag value);
ZARNCORE_EXPORT AccentFlag accentFlagFromString(const std::string &text);

ZARNCORE_EXPORT std::string accidentalDisplayToString(AccidentalDisplay value);
ZARNCORE_EXPORT AccidentalDisplay accidentalDisplayFromString(const std::string &text);

ZARNCORE_EXPORT std::string barLineToString(BarLine value);
ZARNCORE_EXPORT BarLine barLineFromString(const std::string &text);

ZARNCORE_EXPORT std::string meterSignToString(MeterSign value);
ZARNCORE_EXPORT MeterSign meterSignFromString(const std::string &text);

ZARNCORE_EXPORT std::string beamModeToString(BeamMode value);
ZARNCORE_EXPORT BeamMode beamModeFromString(const std::string &text);

ZARNCORE_EXPORT std::string syllabicToString(Syllabic value);
ZARNCORE_EXPORT Syllabic syllabicFromString(const std::string &text);

ZARNCORE_EXPORT std::string slurLineToString(SlurLine value);
ZARNCORE_EXPORT SlurLine slurLineFromString(const std::string &text);

ZARNCORE_EXPORT std::string markSideToString(MarkSide value);
ZARNCORE_EXPORT MarkSide markSideFromString(const std::string &text);

ZARNCORE_EXPORT std::string textSpanToString(TextSpan value);
ZARNCORE_EXPORT TextSpan textSpanFromString(const std::string &text);

ZARNCORE_EXPORT std::string groupSymbolToString(GroupSymbol value);
ZARNCORE_EXPORT GroupSymbol groupSymbolFromString(const std::string &text);

} // namespace zarn
