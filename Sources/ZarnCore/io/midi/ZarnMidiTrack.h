// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/io/midi/ZarnMidiEvent.h>

#include <string>
#include <string_view>
#include <vector>

namespace zarn::io {

/// The events of one track of a MIDI file, in the order in which they stand in it. Times are ticks
/// from the start of the track. Channels count from 0, so that percussion is 9.
///
/// The adding functions take what they are given; `MidiFileWriter` checks it.
class ZARNCORE_EXPORT MidiTrack {
public:
    const std::vector<MidiEvent> &events() const noexcept { return _events; }

    /// What a meta or system event carries, without its length; empty for channel messages.
    std::string_view payload(const MidiEvent &event) const noexcept;

    /// Where the track ends: at its last event, unless it was set to be later.
    std::uint64_t endTick() const noexcept;
    void setEndTick(std::uint64_t tick) noexcept { _endTick = tick; }

    void addMessage(std::uint64_t tick, MidiMessage kind, int channel, int data1, int data2 = 0);
    void addNoteOn(std::uint64_t tick, int channel, int key, int velocity);
    void addNoteOff(std::uint64_t tick, int channel, int key, int velocity = 64);
    void addControl(std::uint64_t tick, int channel, MidiControl control, int value);
    void addProgram(std::uint64_t tick, int channel, int program);

    /// From -8192 to 8191; 0 is the middle.
    void addPitchBend(std::uint64_t tick, int channel, int bend);

    void addMeta(std::uint64_t tick, MidiMeta kind, std::string_view payload);
    void addTempo(std::uint64_t tick, std::uint32_t microsecondsPerQuarter);

    /// The denominator is a power of two; clocks are 24 to a quarter.
    void addTimeSignature(std::uint64_t tick, int numerator, int denominator,
                          int clocksPerClick = 24);

    /// Sharps above 0, flats below.
    void addKeySignature(std::uint64_t tick, int fifths, bool isMinor);

    /// A system exclusive message, without its first byte (0xF0, or 0xF7 for what goes on).
    void addSystemEvent(std::uint64_t tick, std::uint8_t status, std::string_view payload);

    /// Any event as a file has it.
    void add(MidiEvent event, std::string_view payload = {});

    /// Puts the events in the order of their times; those of one tick stay as they are.
    void sortByTime();

    void reserve(std::size_t events) { _events.reserve(events); }

private:
    std::vector<MidiEvent> _events;
    std::vector<std::string> _payloads;
    std::uint64_t _endTick = 0;
};

} // namespace zarn::io
