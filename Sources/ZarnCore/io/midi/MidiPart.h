// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/io/midi/MeterLine.h>
#include <ZarnCore/io/midi/PitchSpeller.h>
#include <ZarnCore/io/midi/TempoLine.h>

#include <optional>
#include <string>
#include <vector>

namespace zarn::io {

/// A text of a MIDI file and when it stands.
struct MidiText {
    MidiTime time = 0;
    std::string text; ///< UTF-8
};

/// A program with its banks, and when a channel goes over to it; `MidiPart::Unset` for what is not
/// said.
struct SoundChange {
    MidiTime time = 0;
    int program = -1;
    int bank = -1;
    int fineBank = -1;

    bool isSameSound(const SoundChange &other) const noexcept
    {
        return program == other.program && bank == other.bank && fineBank == other.fineBank;
    }
};

/// What a MIDI file has for one track of the score.
struct MidiPart {
    static constexpr int Unset = -1;

    int midiTrack = 0; ///< counted from 0
    int channel = 0;   ///< counted from 0
    std::string name;
    InstrumentSet::Type type = InstrumentSet::unknown;
    SoundChange sound;  ///< that of its first note
    int volume = Unset; ///< the first one; so is the pan
    int pan = Unset;
    bool isDrums = false;

    /// Other sounds behind the first note, in the order of time.
    std::vector<SoundChange> soundChanges;

    /// The open strings, the lowest first, when the channels of the file are those of strings.
    std::vector<unsigned> strings;

    /// Notes in the order in which they were played, by staff, the upper one first.
    std::vector<PlayedNotes> staves;

    std::vector<MidiText> lyrics;
};

/// The music of a MIDI file, before it is known how it is written.
struct MidiMusic {
    double tick = 1;  ///< length of a tick, in the parts of a quarter
    MidiTime end = 0; ///< of the last note
    std::string title;
    std::string artist;
    std::string copyright;
    std::vector<TempoChange> tempos;
    std::vector<MeterChange> meters;
    std::vector<KeyChange> keys;
    std::vector<MidiText> sections;

    /// How notes are written, where the file says it, and meters of bars that have another length.
    std::vector<WrittenPlace> written;
    std::vector<MeterChange> writtenMeters;
    std::optional<MidiTime> writtenEnd; ///< of the last bar

    std::vector<MidiPart> parts;
};

} // namespace zarn::io
