// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zarn {

/// What becomes of the notes of a staff that is tuned anew.
enum class Retuning : std::uint8_t {
    KeepFrets,   ///< the same fingers: the pitches change with the strings
    KeepPitches, ///< the same music: it is fingered anew
};

} // namespace zarn
