// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zarn {

/// A finger over several strings. It lies from a beat to the first one without the same barre.
struct ZARNCORE_EXPORT Barre {
    static constexpr unsigned HighestFret = 127;
    static constexpr unsigned MaxStrings = 16;

    std::uint8_t fret = 0; ///< 0 for no barre

    /// The strings under it, bit 0 the lowest; 0 means all.
    std::uint16_t strings = 0;

    bool isHalf() const noexcept { return strings != 0; }
    bool isValid() const noexcept { return fret <= HighestFret && (fret != 0 || strings == 0); }

    /// "7" over all strings, "7 3,4,5" over some; "0" for none.
    std::string toString() const;
    static std::optional<Barre> fromString(std::string_view text);

    friend bool operator==(const Barre &left, const Barre &right) noexcept
    {
        return left.fret == right.fret && left.strings == right.strings;
    }
    friend bool operator!=(const Barre &left, const Barre &right) noexcept
    {
        return !(left == right);
    }
};

} // namespace zarn
