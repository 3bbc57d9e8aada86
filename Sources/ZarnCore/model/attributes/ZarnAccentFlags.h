// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypesSigns.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zarn {

/// The articulations of a note. Signs that mean different lengths, or different weights, do not
/// stand together: the one that is put in takes the other out.
class ZARNCORE_EXPORT AccentFlags {
public:
    static constexpr unsigned AllBits = 63;

    constexpr AccentFlags() noexcept = default;

    /// Bits as `AccentFlag` numbers them; others are left out.
    constexpr explicit AccentFlags(unsigned bits) noexcept
        : _bits(static_cast<std::uint8_t>(bits & AllBits))
    {
    }
    constexpr AccentFlags(AccentFlag flag) noexcept : AccentFlags(static_cast<unsigned>(flag)) { }

    constexpr unsigned bits() const noexcept { return _bits; }
    constexpr bool isEmpty() const noexcept { return _bits == 0; }
    constexpr bool has(AccentFlag flag) const noexcept
    {
        return (_bits & static_cast<unsigned>(flag)) != 0;
    }

    constexpr AccentFlags without(AccentFlags others) const noexcept
    {
        return AccentFlags(_bits & ~others.bits());
    }
    constexpr AccentFlags with(AccentFlag flag) const noexcept
    {
        return AccentFlags(without(rivalsOf(flag)).bits() | static_cast<unsigned>(flag));
    }

    /// Whether no two of them exclude each other.
    constexpr bool isValid() const noexcept
    {
        for (unsigned bit = 1; bit <= AllBits; bit <<= 1)
            if ((_bits & bit) != 0
                && (_bits & rivalsOf(static_cast<AccentFlag>(bit)).bits() & ~bit) != 0)
                return false;
        return true;
    }

    /// "Staccato Accent", in the order of the flags; "None" for none.
    std::string toString() const;
    static std::optional<AccentFlags> fromString(std::string_view text);

    friend constexpr bool operator==(AccentFlags left, AccentFlags right) noexcept
    {
        return left._bits == right._bits;
    }
    friend constexpr bool operator!=(AccentFlags left, AccentFlags right) noexcept
    {
        return !(left == right);
    }

private:
    /// The signs of the same group.
    static constexpr AccentFlags rivalsOf(AccentFlag flag) noexcept
    {
        constexpr unsigned lengths = static_cast<unsigned>(AccentFlag::Staccato)
            | static_cast<unsigned>(AccentFlag::Staccatissimo);
        constexpr unsigned weights = static_cast<unsigned>(AccentFlag::Accent)
            | static_cast<unsigned>(AccentFlag::HeavyAccent)
            | static_cast<unsigned>(AccentFlag::SoftAccent);
        const unsigned bit = static_cast<unsigned>(flag);
        return AccentFlags((bit & lengths) != 0 ? lengths : (bit & weights) != 0 ? weights : 0U);
    }

    std::uint8_t _bits = 0;
};

} // namespace zarn
