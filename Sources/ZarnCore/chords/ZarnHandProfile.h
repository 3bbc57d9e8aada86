// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace zarn::chord {

/// What makes a hand shape hard. Each is an amount that a profile gives a weight.
enum class HandReason : std::uint8_t {
    Finger,           ///< fingers that press
    LittleFinger,     ///< 1 when the fourth finger has to press
    NoIndexFinger,    ///< 1 when the lowest finger is not the first
    Stretch,          ///< frets between neighbouring fingers beyond the hand's own spacing
    SqueezeFirst,     ///< frets that the first finger and the next are closer than that
    SqueezeSecond,    ///< the same of the second finger and the next
    SqueezeThird,     ///< the same of the third and the fourth
    SkippedFinger,    ///< fingers that hang in the air between two that press
    Spread,           ///< strings between neighbouring fingers at one fret
    Barre,            ///< 1 for a first finger that lies over several strings
    OtherBarre,       ///< barres of the other fingers
    BarreWidth,       ///< strings beyond two from end to end of any barre
    BarreUnderOpen,   ///< barres while an open string rings, which they easily damp
    BarreOverMuted,   ///< strings under a barre that must not sound
    BarreOverStopped, ///< strings under a barre that another finger stops higher
    OffNumber,        ///< in first position with open strings: frets off the finger's own number
};
constexpr std::size_t handReasonCount = 16;

using HandWeights = std::array<float, handReasonCount>;

/// Which hand plays what. The costs of `HandModel` are in finger presses: a plain finger of a
/// guitarist costs 1.
struct HandProfile {
    float stringLength;        ///< from nut to bridge, millimetres
    float reach;               ///< from the first finger to the fourth, millimetres
    std::int8_t mostFrets;     ///< from the lowest stopped fret to the highest, however near
    float spacing;             ///< frets between neighbouring fingers of a hand at ease
    float ease;                ///< frets that a finger bends from there without effort
    std::int8_t barredStrings; ///< that the first finger can hold down at once
    bool isBowed;              ///< strings sound with their neighbours or alone
    HandWeights weights;

    float weight(HandReason reason) const noexcept
    {
        return weights[static_cast<std::size_t>(reason)];
    }
};

// Lengths are those of usual instruments; a mandolin is fingered as a violin is.
ZARNCORE_EXPORT const HandProfile &guitarHand() noexcept;
ZARNCORE_EXPORT const HandProfile &bassHand() noexcept;
ZARNCORE_EXPORT const HandProfile &ukuleleHand() noexcept;
ZARNCORE_EXPORT const HandProfile &mandolinHand() noexcept;
ZARNCORE_EXPORT const HandProfile &banjoHand() noexcept;
ZARNCORE_EXPORT const HandProfile &violinHand() noexcept;
ZARNCORE_EXPORT const HandProfile &celloHand() noexcept;
ZARNCORE_EXPORT const HandProfile &contrabassHand() noexcept;

/// A hand that holds so many frets, and reaches as far for them as it takes.
ZARNCORE_EXPORT HandProfile handOfSpan(HandProfile hand, int mostFrets) noexcept;

/// The hand for a tuning: by its instrument, or by its strings when it does not say.
ZARNCORE_EXPORT const HandProfile &handFor(const GuitarTuning &tuning) noexcept;

} // namespace zarn::chord
