// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zarn {

/// How the notes of a chord are struck one after the other.
struct ZARNCORE_EXPORT Strum {
    static constexpr unsigned ShortestLength = 1;
    static constexpr unsigned LongestLength = 3840;

    // The usual lengths: a 64th and a 16th.
    static constexpr std::uint16_t BrushLength = 60;
    static constexpr std::uint16_t ArpeggioLength = 240;

    Direction direction = Direction::None;

    /// From the first note to the last, in 960ths of a quarter; 0 is the usual length.
    std::uint16_t length = 0;
    StrumAnchor anchor = StrumAnchor::StartsOnBeat;

    bool isValid() const noexcept
    {
        return direction <= Direction::Down && length <= LongestLength
            && anchor <= StrumAnchor::EndsOnBeat
            && (direction != Direction::None
                || (length == 0 && anchor == StrumAnchor::StartsOnBeat));
    }

    /// "Up", "Down 480", "Up 480 EndsOnBeat"; "None" for none.
    std::string toString() const;
    static std::optional<Strum> fromString(std::string_view text);

    friend bool operator==(const Strum &left, const Strum &right) noexcept
    {
        return left.direction == right.direction && left.length == right.length
            && left.anchor == right.anchor;
    }
    friend bool operator!=(const Strum &left, const Strum &right) noexcept
    {
        return !(left == right);
    }
};

} // namespace zarn
