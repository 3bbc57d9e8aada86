// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zarn::playback {

/// A channel of a track: notes that share their pitch motion at any time.
struct Lane {
    enum class Role : std::uint8_t { Main, Bend, String, Percussion };

    std::uint16_t track = 0;
    Role role = Role::Main;
    std::uint8_t number = 0; ///< of the string, or among the lanes for bends

    // In MIDI, counted from 0. Fifteen lanes find room at each port beside percussion.
    std::uint8_t port = 0;
    std::uint8_t channel = 0;

    /// Semitones that the pitch wheel moves the pitch by, up or down; 0 where nothing is bent.
    std::uint8_t bendRange = 0;
};

} // namespace zarn::playback
