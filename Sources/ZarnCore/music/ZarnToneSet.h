// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/music/ZarnTone.h>

#include <cstdint>

namespace zarn {

/// A set of the twelve pitch classes: bit 0 is C, bit 11 is B.
class ToneSet {
public:
    static constexpr int possibleSets = 4096;

    /// No tones.
    constexpr ToneSet() noexcept = default;

    /// From the bits; those above the twelfth do not count.
    constexpr explicit ToneSet(unsigned bits) noexcept
        : _bits(static_cast<std::uint16_t>(bits & 0xfffu))
    {
    }

    /// The pitch classes of MIDI numbers, in any order and number.
    template <class Pitches>
    static constexpr ToneSet ofPitches(const Pitches &pitches) noexcept
    {
        ToneSet set;
        for (const int pitch : pitches)
            set.insert(Tone(pitch));
        return set;
    }

    constexpr unsigned bits() const noexcept { return _bits; }
    constexpr bool isEmpty() const noexcept { return _bits == 0; }
    constexpr bool contains(Tone tone) const noexcept { return (_bits & bit(tone)) != 0; }
    constexpr bool contains(ToneSet other) const noexcept
    {
        return (other._bits & ~unsigned(_bits)) == 0;
    }
    constexpr int size() const noexcept
    {
        int count = 0;
        for (unsigned rest = _bits; rest != 0; rest &= rest - 1)
            ++count;
        return count;
    }

    constexpr void insert(Tone tone) noexcept { *this = ToneSet(_bits | bit(tone)); }
    constexpr void remove(Tone tone) noexcept { *this = ToneSet(_bits & ~bit(tone)); }

    /// All tones moved by some semitones, up or down, round the twelve.
    constexpr ToneSet transposed(int semitones) const noexcept
    {
        const int steps = Tone(semitones).value();
        return ToneSet((unsigned(_bits) << steps) | (unsigned(_bits) >> (12 - steps)));
    }

    friend constexpr ToneSet operator|(ToneSet left, ToneSet right) noexcept
    {
        return ToneSet(left.bits() | right.bits());
    }
    friend constexpr ToneSet operator&(ToneSet left, ToneSet right) noexcept
    {
        return ToneSet(left.bits() & right.bits());
    }
    /// The tones of `left` that `right` lacks.
    friend constexpr ToneSet operator-(ToneSet left, ToneSet right) noexcept
    {
        return ToneSet(left.bits() & ~right.bits());
    }
    friend constexpr bool operator==(ToneSet left, ToneSet right) noexcept
    {
        return left.bits() == right.bits();
    }
    friend constexpr bool operator!=(ToneSet left, ToneSet right) noexcept
    {
        return !(left == right);
    }

private:
    static constexpr unsigned bit(Tone tone) noexcept { return 1u << tone.value(); }

    std::uint16_t _bits = 0;
};

} // namespace zarn
