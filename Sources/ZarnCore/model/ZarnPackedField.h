// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>

namespace zarn {

/// Raises for a number that an attribute does not take.
[[noreturn]] ZARNCORE_EXPORT void raiseOutOfRange();

/// A value of 0 to `Highest` in `Width` bits of a word, from bit `Shift` on. It is stored so that
/// the default is 0: a word of 0 holds nothing but defaults.
template <class T, unsigned Shift, unsigned Width, unsigned Highest, T Default = T{}>
struct PackedField {
    static_assert(Shift + Width <= 64 && Highest < (1U << Width));

    using Value = T;
    static constexpr unsigned end = Shift + Width;
    static constexpr std::uint64_t mask = ((std::uint64_t(1) << Width) - 1) << Shift;

    static constexpr T get(std::uint64_t word) noexcept
    {
        return static_cast<T>(((word & mask) >> Shift) ^ static_cast<std::uint64_t>(Default));
    }

    /// The word with the value in it; raises for a value above `Highest`.
    static constexpr std::uint64_t set(std::uint64_t word, T value)
    {
        const auto number = static_cast<std::uint64_t>(value);
        if (number > Highest)
            raiseOutOfRange();
        return (word & ~mask) | (number ^ static_cast<std::uint64_t>(Default)) << Shift;
    }
};

/// A yes or no.
template <unsigned Shift>
using PackedFlag = PackedField<bool, Shift, 1, 1>;

} // namespace zarn
