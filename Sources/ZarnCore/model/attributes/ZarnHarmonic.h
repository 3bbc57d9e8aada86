// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypesTechniques.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zarn {

/// A harmonic of a string: how it is brought out, and which partial sounds.
///
/// Partial n sounds 12 log2(n) semitones above the vibrating string: the open one, or the one at
/// the capo, for a natural harmonic, else the stopped one. It speaks where the string is touched
/// at a multiple of 1/n of its length. A note's key, string and fret stay those of its fret, which
/// for a natural harmonic is where the string is touched.
struct ZARNCORE_EXPORT Harmonic {
    static constexpr unsigned LowestPartial = 2;
    static constexpr unsigned HighestPartial = 12;

    HarmonicType type = HarmonicType::NoHarmonic;
    std::uint8_t partial = 0; ///< 0 for no harmonic

    bool isValid() const noexcept
    {
        if (type == HarmonicType::NoHarmonic)
            return partial == 0;
        return type <= HarmonicType::Feedback && partial >= LowestPartial
            && partial <= HighestPartial;
    }

    /// The partial that speaks at a whole fret, 0 where none does: where two are near, the lower.
    static unsigned partialAtFret(int fret) noexcept;

    /// A whole fret next to a place where the partial speaks: 12 for 2, 7 for 3, 5 for 4. Raises
    /// for a partial that is none.
    static unsigned fretOfPartial(unsigned partial);

    /// Semitones above the vibrating string, to the nearest key.
    static int semitones(unsigned partial);

    /// "Natural 3"; "NoHarmonic" for none.
    std::string toString() const;
    static std::optional<Harmonic> fromString(std::string_view text);

    friend bool operator==(const Harmonic &left, const Harmonic &right) noexcept
    {
        return left.type == right.type && left.partial == right.partial;
    }
    friend bool operator!=(const Harmonic &left, const Harmonic &right) noexcept
    {
        return !(left == right);
    }
};

} // namespace zarn
