// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/rational.h>

#include <cstdint>
#include <vector>

namespace zarn::io {

/// Times while a MIDI file is read: whole parts of a quarter, so many that the positions of all
/// usual tuplets are exact.
using MidiTime = std::int64_t;
constexpr MidiTime midiQuarter = 20160;

inline utils::rational inQuarterNotes(MidiTime time)
{
    return {time, midiQuarter};
}

/// How the notes of a chord follow each other.
enum class Roll : std::uint8_t { None, Up, Down };

/// A note of a MIDI file: when it was played, and where it is to be written.
struct PlayedNote {
    MidiTime playedStart = 0;
    MidiTime playedEnd = 0;
    MidiTime start = 0; ///< as it is written; so is the end
    MidiTime end = 0;
    std::uint8_t key = 0;
    std::uint8_t velocity = 0;
    std::uint8_t channel = 0;
    std::uint8_t voice = 0;
    std::int8_t string = -1; ///< 0 the lowest
    Roll roll = Roll::None;
    bool isGrace = false;  ///< is written in front of the note that begins at its time
    std::int8_t fifth = 0; ///< how it is spelled, on the line of fifths from C
};

using PlayedNotes = std::vector<PlayedNote>;

} // namespace zarn::io
