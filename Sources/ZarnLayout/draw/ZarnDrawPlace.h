// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zarn::layout {

/// What of a score a mark draws: track, bar, staff, voice, beat and note, each counted from 0 and
/// -1 where it does not apply. The order of the numbers is that of `ScoreModelIndex`.
struct DrawPlace {
    std::int32_t bar = -1;
    std::int16_t track = -1;
    std::int16_t beat = -1;
    std::int8_t staff = -1;
    std::int8_t voice = -1;
    std::int16_t note = -1;

    friend constexpr bool operator==(const DrawPlace &a, const DrawPlace &b) noexcept
    {
        return a.bar == b.bar && a.track == b.track && a.beat == b.beat && a.staff == b.staff
            && a.voice == b.voice && a.note == b.note;
    }
    friend constexpr bool operator!=(const DrawPlace &a, const DrawPlace &b) noexcept
    {
        return !(a == b);
    }
};

} // namespace zarn::layout
