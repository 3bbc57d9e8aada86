// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/ZarnMidiTrack.h>

#include <cstdint>
#include <string>
#include <vector>

namespace zarn::io {

/// Collects the events of a track in any order, and puts them in that of a file. At one tick come
/// texts and signatures, then ends of notes, pitch wheels that go back, all other changes, and then
/// the notes that begin.
class MidiTrackBuilder {
public:
    enum class Rank : std::uint8_t { Meta, NoteOff, Release, Change, NoteOn };

    void add(std::uint64_t tick, Rank rank, MidiMessage kind, int channel, int data1,
             int data2 = 0);
    void addControl(std::uint64_t tick, int channel, int controller, int value)
    {
        add(tick, Rank::Change, MidiMessage::Control, channel, controller, value);
    }

    /// A note that has no length at this resolution gets a tick.
    void addNote(std::uint64_t start, std::uint64_t end, int channel, int key, int velocity);

    /// From -8192 to 8191.
    void addPitchBend(std::uint64_t tick, Rank rank, int channel, int bend);

    /// Goes in front of all events of its tick, in the order in which it is added.
    MidiTrack &meta() noexcept { return _meta; }

    void reserve(std::size_t events) { _events.reserve(events); }

    /// The track, ended at a tick or at its last event.
    MidiTrack finish(std::uint64_t endTick);

private:
    struct Event {
        std::uint64_t order; ///< tick and rank
        std::uint8_t status;
        std::uint8_t data1;
        std::uint8_t data2;
    };

    std::vector<Event> _events;
    MidiTrack _meta;
};

} // namespace zarn::io
