// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace zarn::chord {

/// What every string of a chord does, string 0 the lowest of a usual tuning. A value of fixed size:
/// hands are tried by the thousand.
class FretRow {
public:
    /// Strings beyond these take no part in chords. No built-in tuning has more.
    static constexpr std::size_t mostStrings = 16;
    static constexpr std::int8_t notPlayed = -1;
    static constexpr std::int8_t open = 0;

    /// No string is played.
    constexpr explicit FretRow(std::size_t stringCount) noexcept
        : _size(static_cast<std::uint8_t>(stringCount < mostStrings ? stringCount : mostStrings))
    {
        for (auto &fret : _frets)
            fret = notPlayed;
    }

    /// `notPlayed`, `open`, or the fret at which a finger stops the string. Frets are places on the
    /// neck, counted from the nut, also behind a capo: the hand feels where they are.
    constexpr std::int8_t operator[](std::size_t string) const noexcept { return _frets[string]; }
    constexpr void set(std::size_t string, int fret) noexcept
    {
        _frets[string] = static_cast<std::int8_t>(fret);
    }

    constexpr std::size_t size() const noexcept { return _size; }

private:
    std::array<std::int8_t, mostStrings> _frets{};
    std::uint8_t _size;
};

} // namespace zarn::chord
