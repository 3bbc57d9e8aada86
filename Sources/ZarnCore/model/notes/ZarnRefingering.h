// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zarn {

/// How notes on strings are played when their pitches move.
enum class Refingering : std::uint8_t {
    KeepStrings, ///< on their strings, and on others only where these do not reach
    FindAnew,    ///< as a player would finger the new pitches
};

} // namespace zarn
