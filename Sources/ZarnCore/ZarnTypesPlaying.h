// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <string>

/// Enumerations of how the notes are played: bends, strokes, fingers, beaters.
/// The texts are the vocabulary of documents and command arguments; `ZarnTypes.h` says how they
/// are read and printed.
namespace zarn {

enum class AntiAccent : std::uint8_t {
    None,
    Soft,
    Normal,
    Strong,
};

enum class BendType : std::uint8_t {
    NoBend,
    Bend,
    PreBend,
    HoldBend,
    Release,
    BendNRelease,
    PreBendNBend,
    PreBendNRelease,
};

/// Which way a strum or an arpeggio goes.
enum class Direction : std::uint8_t {
    None,
    Up,
    Down,
};

/// Volume fades; the doubled d is part of the published name.
enum class Fadding : std::uint8_t {
    NoFadding,
    FadeIn,
    FadeOut,
    VolumeSwell,
};

/// The fingers have numbers but no text; they print as None.
enum class Fingering : std::uint8_t {
    None,
    Thumb,
    Index,
    Middle,
    Annular,
    Little,
    Open,
};

/// The tap of a flamenco guitarist on the soundboard.
enum class ZarnGolpeType : std::uint8_t {
    Thumb,
    Finger,
    None,
};

/// Rasgueado patterns, named by the fingers of the right hand in the order of their strokes:
/// p thumb, i index, m middle, a ring, e little finger.
enum class RasgueadoType : std::uint8_t {
    None,
    ii_1,
    mi_1,
    mii_1,
    mii_2,
    pmp_1,
    pmp_2,
    pei_1,
    pei_2,
    pai_1,
    pai_2,
    ami_1,
    ami_2,
    ppp_1,
    amii_1,
    amip_1,
    eami_1,
    ieam_1,
    eamii_1,
    peami_1,
};

enum class Vibrato : std::uint8_t {
    Slight,
    Wide,
    None,
};

enum class WahWah : std::uint8_t {
    Closed,
    Open,
    None,
};

enum class WhammyBarType : std::uint8_t {
    NoWhammyBar,
    Dive,
    Dip,
    HoldWhammyBar,
    PreDive,
    PreDiveNDive,
};

/// How the whole track is played. Hot rods are read and never printed.
enum class PlayingStyle : std::uint8_t {
    Default,
    StringedPick,
    StringedFinger,
    StringedFingerPicking,
    BassSlap,
    DrumKitBrush,
    DrumKitStick,
    DrumKitHotRod,
};

/// What strikes a percussion element.
enum class Beater : std::uint8_t {
    Stick,
    HotRod,
    Mallet,
    Brush,
    Pedal,
    Hand,
};

/// How a percussion element is struck.
enum class BeaterTechnic : std::uint8_t {
    Hit,
    Drag,
    Flam,
    RimShot,
    SideStick,
};

ZARNCORE_EXPORT std::string antiAccentToString(AntiAccent value);
ZARNCORE_EXPORT AntiAccent antiAccentFromString(const std::string &text);

ZARNCORE_EXPORT std::string bendTypeToString(BendType value);
ZARNCORE_EXPORT BendType bendTypeFromString(const std::string &text);

ZARNCORE_EXPORT std::string directionToString(Direction value);
ZARNCORE_EXPORT Direction directionFromString(const std::string &text);

ZARNCORE_EXPORT std::string faddingToString(Fadding value);
ZARNCORE_EXPORT Fadding faddingFromString(const std::string &text);

ZARNCORE_EXPORT std::string fingeringToString(Fingering value);
ZARNCORE_EXPORT Fingering fingeringFromString(const std::string &text);

ZARNCORE_EXPORT std::string golpeToString(ZarnGolpeType value);
ZARNCORE_EXPORT ZarnGolpeType golpeFromString(const std::string &text);

ZARNCORE_EXPORT std::string rasgueadoToString(RasgueadoType value);
ZARNCORE_EXPORT RasgueadoType rasgueadoFromString(const std::string &text);

ZARNCORE_EXPORT std::string vibratoToString(Vibrato value);
ZARNCORE_EXPORT Vibrato vibratoFromString(const std::string &text);

ZARNCORE_EXPORT std::string wahWahToString(WahWah value);
ZARNCORE_EXPORT WahWah wahWahFromString(const std::string &text);

ZARNCORE_EXPORT std::string whammyBarTypeToString(WhammyBarType value);
ZARNCORE_EXPORT WhammyBarType whammyBarTypeFromString(const std::string &text);

ZARNCORE_EXPORT std::string playingStyleToString(PlayingStyle value);
ZARNCORE_EXPORT PlayingStyle playingStyleFromString(const std::string &text);

ZARNCORE_EXPORT std::string beaterToString(Beater value);
/// An unknown text raises "Invalid Beater: %1%", with the text in place of %1%.
ZARNCORE_EXPORT Beater beaterFromString(const std::string &text);

ZARNCORE_EXPORT std::string beaterTechnicToString(BeaterTechnic value);
/// An unknown text raises "Invalid Beater Technic: %1%", with the text in place of %1%.
ZARNCORE_EXPORT BeaterTechnic beaterTechnicFromString(const std::string &text);

} // namespace zarn
