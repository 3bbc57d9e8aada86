// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <string>

/// Enumerations of how single notes and beats are brought out: slaps, harmonics, slides, pedals.
/// The texts are the vocabulary of documents and command arguments; `ZarnTypes.h` says how they
/// are read and printed.
namespace zarn {

/// How the thumb and the fingers strike a bass.
enum class BassAttack : std::uint8_t {
    None,
    Slap,
    Pop,
};

/// How a harmonic is brought out. Natural ones sound on open strings, all others on stopped ones.
enum class HarmonicType : std::uint8_t {
    NoHarmonic,
    Natural,
    Artificial,
    Pinch,
    Tapped,
    Semi,
    Feedback,
};

/// A slide that leads to a note from nowhere in particular.
enum class SlideIn : std::uint8_t {
    None,
    FromBelow,
    FromAbove,
};

/// A slide that leads on from a note: to the next one (shift: struck again, legato: not), to
/// nowhere, or with the edge of the pick along the string.
enum class SlideOut : std::uint8_t {
    None,
    Shift,
    Legato,
    Downwards,
    Upwards,
    PickScrapeDown,
    PickScrapeUp,
};

/// Which end of a strum is on the beat: its first note or its last.
enum class StrumAnchor : std::uint8_t {
    StartsOnBeat,
    EndsOnBeat,
};

enum class Hand : std::uint8_t {
    Left,
    Right,
};

/// What happens to the sustain pedal of a staff at a beat.
enum class PedalChange : std::uint8_t {
    None,
    Start,
    Change, ///< lifted and pressed again
    Stop,
};

/// A break behind a beat.
enum class BreathSign : std::uint8_t {
    None,
    Breath,
    Caesura,
};

/// A dynamic of the attack alone; the level in force goes on behind it, but for the three that
/// end in p: they go on softly.
enum class AttackDynamic : std::uint8_t {
    None,
    Sf,
    Sfz,
    Sffz,
    Fz,
    Rf,
    Rfz,
    Fp,
    Sfp,
    Sfpp,
    Pf, ///< softly attacked, loud behind it
};

ZARNCORE_EXPORT std::string bassAttackToString(BassAttack value);
ZARNCORE_EXPORT BassAttack bassAttackFromString(const std::string &text);

ZARNCORE_EXPORT std::string harmonicTypeToString(HarmonicType value);
ZARNCORE_EXPORT HarmonicType harmonicTypeFromString(const std::string &text);

ZARNCORE_EXPORT std::string slideInToString(SlideIn value);
ZARNCORE_EXPORT SlideIn slideInFromString(const std::string &text);

ZARNCORE_EXPORT std::string slideOutToString(SlideOut value);
ZARNCORE_EXPORT SlideOut slideOutFromString(const std::string &text);

ZARNCORE_EXPORT std::string strumAnchorToString(StrumAnchor value);
ZARNCORE_EXPORT StrumAnchor strumAnchorFromString(const std::string &text);

ZARNCORE_EXPORT std::string handToString(Hand value);
ZARNCORE_EXPORT Hand handFromString(const std::string &text);

ZARNCORE_EXPORT std::string pedalChangeToString(PedalChange value);
ZARNCORE_EXPORT PedalChange pedalChangeFromString(const std::string &text);

ZARNCORE_EXPORT std::string breathSignToString(BreathSign value);
ZARNCORE_EXPORT BreathSign breathSignFromString(const std::string &text);

ZARNCORE_EXPORT std::string attackDynamicToString(AttackDynamic value);
ZARNCORE_EXPORT AttackDynamic attackDynamicFromString(const std::string &text);

} // namespace zarn
