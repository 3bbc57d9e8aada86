// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zarn::io {

/// Kinds of channel messages: the upper half of their status byte.
enum class MidiMessage : std::uint8_t {
    NoteOff = 0x80,
    NoteOn = 0x90,
    KeyPressure = 0xA0,
    Control = 0xB0,
    Program = 0xC0,
    ChannelPressure = 0xD0,
    PitchBend = 0xE0,
};

/// Kinds of meta events of the Standard MIDI File; others may stand in a file too.
enum class MidiMeta : std::uint8_t {
    SequenceNumber = 0x00,
    Text = 0x01,
    Copyright = 0x02,
    TrackName = 0x03,
    InstrumentName = 0x04,
    Lyric = 0x05,
    Marker = 0x06,
    CuePoint = 0x07,
    ProgramName = 0x08,
    DeviceName = 0x09,
    ChannelPrefix = 0x20,
    Port = 0x21,
    EndOfTrack = 0x2F,
    Tempo = 0x51,
    SmpteOffset = 0x54,
    TimeSignature = 0x58,
    KeySignature = 0x59,
    SequencerSpecific = 0x7F,
};

/// Controllers that a score knows of.
enum class MidiControl : std::uint8_t {
    Bank = 0,
    DataEntry = 6,
    Volume = 7,
    Pan = 10,
    Expression = 11,
    BankFine = 32,
    DataEntryFine = 38,
    Sustain = 64,
    ParameterFine = 100, ///< of a registered parameter
    Parameter = 101,
};

/// An event of a track. What it carries besides its bytes, texts for one, is kept by the track.
struct MidiEvent {
    std::uint64_t tick = 0;    ///< from the start of the track
    std::uint32_t payload = 0; ///< number in the track of what meta and system events carry
    std::uint8_t status = 0;   ///< 0x80 to 0xEF, 0xF0, 0xF7 or 0xFF
    std::uint8_t data1 = 0;    ///< of meta events: their kind
    std::uint8_t data2 = 0;

    bool isChannelMessage() const noexcept { return status < 0xF0; }
    bool isMeta() const noexcept { return status == 0xFF; }
    bool is(MidiMeta kind) const noexcept
    {
        return isMeta() && data1 == static_cast<std::uint8_t>(kind);
    }
    bool is(MidiMessage kind) const noexcept
    {
        return isChannelMessage() && (status & 0xF0) == static_cast<std::uint8_t>(kind);
    }
    bool isControl(MidiControl control) const noexcept
    {
        return is(MidiMessage::Control) && data1 == static_cast<std::uint8_t>(control);
    }

    /// Of a channel message, from 0.
    int channel() const noexcept { return status & 0x0F; }

    /// A note-on of velocity 0 is a note-off.
    bool startsNote() const noexcept { return is(MidiMessage::NoteOn) && data2 > 0; }
    bool endsNote() const noexcept
    {
        return is(MidiMessage::NoteOff) || (is(MidiMessage::NoteOn) && data2 == 0);
    }
};

} // namespace zarn::io
