// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace Halvec::audio {

/// Something that a synthesizer does at a frame, as a plan of playing says.
struct TimedEvent {
    /// In the order in which they are done at one frame: notes end before sounds change, and
    /// others begin after that.
    enum class Kind : std::uint8_t {
        NoteOff,
        Program,    ///< `key` is the bank of sounds (MIDI bank select), `value` the program, from 0
        Controller, ///< MIDI controller `key` gets `value`
        Volume,     ///< `amount` decibels, at most 12; minus infinity is silence
        Pan,        ///< `amount` from -1 left to 1 right
        Bend,       ///< all notes of the channel, by `amount` semitones, -48 to 48
        NoteOn,     ///< `key` with the velocity `value`
    };

    std::int64_t frame = 0; ///< from 0 up
    Kind kind = Kind::NoteOn;
    std::uint8_t channel = 0;
    std::uint8_t key = 0;
    std::uint8_t value = 0; ///< 0 to 127
    double amount = 0;
};

} // namespace Halvec::audio
