// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <string>

/// Enumerations of what is written: clefs, signs, note heads, ornaments.
/// The texts are the vocabulary of documents and command arguments; `ZarnTypes.h` says how they
/// are read and printed.
namespace zarn {

/// An accidental as it is engraved; `NoteAccidental` is the one of the theory.
enum class Accidental : std::uint8_t {
    None,
    DoubleFlat,
    Flat,
    Natural,
    Sharp,
    DoubleSharp,
};

/// Clefs by their sign and the staff line that they stand on, counted from the bottom.
enum class ClefType : std::uint8_t {
    None,
    G2,
    F4,
    C3,
    C4,
    Neutral,
};

/// Ottava signs: the music sounds one or two octaves higher (a) or lower (b) than written.
enum class Ottavia : std::uint8_t {
    _15ma,
    _8va,
    None,
    _8vb,
    _15mb,
};

/// Note heads, by the names of MusicXML 4.0, with its seven solmization heads.
enum class NoteHead : std::uint8_t {
    Slash,
    Triangle,
    Diamond,
    Square,
    Cross,
    CircleX = 6,
    InvertedTriangle,
    ArrowDown,
    ArrowUp,
    Slashed,
    BackSlashed,
    Normal,
    Cluster,
    None,
    Do,
    Re,
    Mi,
    Fa,
    So,
    La,
    Ti,
};

/// Whether a head is a full or an open one: as the value of its note has it, or for all values.
enum class HeadFill : std::uint8_t {
    Auto,
    Filled,
    Open,
};

/// Where the stem of a beat points; whether up or down is for the layout to say where it is not
/// defined. Beats without a stem have no flags and no beams.
enum class ZarnStemOrientation : std::uint8_t {
    Upward,
    Downward,
    Undefined,
    None,
};

/// Bars that repeat the one or two bars before; the halves of a double mark are 32 + 1 and 32 + 2.
enum class SimileMark : std::uint8_t {
    None,
    Simple = 16,
    Double = 32,
    FirstOfDouble,
    SecondOfDouble,
};

/// The note value that a metronome mark counts.
enum class TempoUnit : std::uint8_t {
    None,
    Eighth,
    Quarter,
    QuarterDotted,
    Half,
    HalfDotted,
};

/// The sign's length; here none is the last value.
enum class Fermata : std::uint8_t {
    Short,
    Medium,
    Long,
    None,
};

enum class GraceType : std::uint8_t {
    None,
    OnBeat,
    BeforeBeat,
};

enum class Ornament : std::uint8_t {
    NoOrnament,
    Turn,
    InvertedTurn,
    LowerMordent,
    UpperMordent,
};

/// The parse key of no hairpin is published without its I.
enum class Hairpin : std::uint8_t {
    NoHairpin,
    Crescendo,
    Decrescendo,
    Swell,
};

ZARNCORE_EXPORT std::string accidentalToString(Accidental value);
ZARNCORE_EXPORT Accidental accidentalFromString(const std::string &text);

ZARNCORE_EXPORT std::string clefToString(ClefType value);
ZARNCORE_EXPORT ClefType clefFromString(const std::string &text);

ZARNCORE_EXPORT std::string ottaviaToString(Ottavia value);
ZARNCORE_EXPORT Ottavia ottaviaFromString(const std::string &text);

ZARNCORE_EXPORT std::string noteHeadToString(NoteHead value);
ZARNCORE_EXPORT NoteHead noteHeadFromString(const std::string &text);

ZARNCORE_EXPORT std::string headFillToString(HeadFill value);
ZARNCORE_EXPORT HeadFill headFillFromString(const std::string &text);

ZARNCORE_EXPORT std::string stemOrientationToString(ZarnStemOrientation value);
ZARNCORE_EXPORT ZarnStemOrientation stemOrientationFromString(const std::string &text);

ZARNCORE_EXPORT const std::string simileMarkToString(SimileMark value);
ZARNCORE_EXPORT SimileMark simileMarkFromString(const std::string &text);

ZARNCORE_EXPORT std::string tempoUnitToString(TempoUnit value);
ZARNCORE_EXPORT TempoUnit tempoUnitFromString(const std::string &text);

ZARNCORE_EXPORT std::string fermataToString(Fermata value);
ZARNCORE_EXPORT Fermata fermataFromString(const std::string &text);

ZARNCORE_EXPORT std::string graceTypeToString(GraceType value);
ZARNCORE_EXPORT GraceType graceTypeFromString(const std::string &text);

ZARNCORE_EXPORT std::string ornamentToString(Ornament value);
ZARNCORE_EXPORT Ornament ornamentFromString(const std::string &text);

ZARNCORE_EXPORT std::string hairpinToString(Hairpin value);
ZARNCORE_EXPORT Hairpin hairpinFromString(const std::string &text);

} // namespace zarn
