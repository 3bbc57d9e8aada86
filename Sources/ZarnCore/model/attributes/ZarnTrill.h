// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/music/ZarnRhythmValue.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zarn {

/// A trill with a note above, `interval` semitones higher; 0 for no trill.
struct ZARNCORE_EXPORT Trill {
    static constexpr unsigned WidestInterval = 12;
    using Speed = RhythmValue::NoteValue;

    std::uint8_t interval = 0;

    /// Value of each note: `Sixteenth`, `ThirtySecond` or `SixtyFourth`.
    Speed speed = Speed::ThirtySecond;

    bool isValid() const noexcept
    {
        return interval <= WidestInterval && speed >= Speed::Sixteenth
            && speed <= Speed::SixtyFourth && (interval != 0 || speed == Speed::ThirtySecond);
    }

    /// "2", or "2 Sixteenth" where the speed is not the usual one; "0" for none.
    std::string toString() const;
    static std::optional<Trill> fromString(std::string_view text);

    friend bool operator==(const Trill &left, const Trill &right) noexcept
    {
        return left.interval == right.interval && left.speed == right.speed;
    }
    friend bool operator!=(const Trill &left, const Trill &right) noexcept
    {
        return !(left == right);
    }
};

} // namespace zarn
