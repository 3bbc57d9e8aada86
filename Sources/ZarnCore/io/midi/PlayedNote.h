// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/rational.h>

#include <algorithm>
#include <cstddef>
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

/// Where a note is written, as far as the file says it.
struct WrittenPlace {
    MidiTime bar = 0; ///< when its bar begins in the file
    MidiTime onset = 0;
    MidiTime length = 0;
    std::uint8_t staff = 0;
    std::uint8_t voice = 0;
    std::int8_t fifth = 0;
    bool isGrace = false;
    bool hasTimes = false; ///< else staff, voice and spelling are all that is said
    bool hasEnd = false;
    bool isTied = false; ///< held from a note before
    bool isHeldOn = false;
};

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
    bool isTied = false;   ///< is no note of its own, but held from one before
    bool isHeldOn = false; ///< into one that follows in the list

    static constexpr std::int32_t NotTold = -1;
    std::int32_t written = NotTold; ///< in `MidiMusic::written`

    bool isTold() const noexcept { return written != NotTold; }
};

using PlayedNotes = std::vector<PlayedNote>;

/// Sorts notes that are nearly in order, as those of a file are; equal ones stay as they are.
template <typename IsBefore>
void sortNearlySorted(PlayedNotes &notes, const IsBefore &isBefore)
{
    constexpr std::ptrdiff_t nearby = 32;
    for (auto note = notes.begin(); note != notes.end(); ++note) {
        if (note == notes.begin() || !isBefore(*note, note[-1]))
            continue;
        const auto first = note - std::min(nearby, note - notes.begin());
        const auto place = std::upper_bound(first, note, *note, isBefore);
        if (place == first && first != notes.begin() && isBefore(*note, first[-1])) {
            std::stable_sort(notes.begin(), notes.end(), isBefore);
            return;
        }
        const PlayedNote moved = *note;
        std::move_backward(place, note, note + 1);
        *place = moved;
    }
}

} // namespace zarn::io
