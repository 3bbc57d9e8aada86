// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/MidiPart.h>
#include <ZarnCore/io/midi/NotatedBarReader.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zarn::io {

class MidiOddities;
class MidiTrack;
struct MidiEvent;
struct MidiFile;

constexpr int midiChannels = 16;

/// What a channel is set to, as far as it is said.
struct MidiChannelSetting {
    SoundChange sound;
    int volume = MidiPart::Unset;
    int pan = MidiPart::Unset;

    /// What is not set as another channel has it.
    void takeMissing(const MidiChannelSetting &other);
};

/// What one track of the file holds.
struct MidiTrackContent {
    std::string name;
    std::array<MidiChannelSetting, midiChannels> settings;
    std::array<PlayedNotes, midiChannels> notes;
    std::array<std::vector<SoundChange>, midiChannels> sounds; ///< all, in the order of time
    std::vector<MidiText> lyrics;
    std::vector<MidiText> texts;
    bool hasNotes = false;
    bool hasKaraoke = false;
};

/// Reads the events of a file's tracks: notes with their ends, what channels are set to, texts, and
/// for the music as a whole tempos, meters and keys.
class MidiContentReader {
public:
    /// All three outlive the reader, which fills the music.
    MidiContentReader(const MidiFile &file, MidiMusic &music, MidiOddities &oddities);

    /// The next track of the file, which begins at a time.
    MidiTrackContent read(const MidiTrack &track, MidiTime start);

    /// The keys that were read, as the tracks state them.
    std::vector<KeyChange> &keys() noexcept { return _keys; }

    /// Whether a channel plays drums: the tenth, unless a synthesizer was told otherwise.
    bool isRhythm(std::size_t channel) const noexcept { return _isRhythm[channel]; }

private:
    /// Notes that sound, by channel and key, the oldest first.
    struct Open {
        std::vector<std::size_t> notes;
        std::size_t next = 0;
    };

    MidiTime timeOf(std::uint64_t tick) const noexcept;
    void readMessage(const MidiEvent &event, MidiTime time);
    void readSystemEvent(std::string_view payload);
    void readMeta(const MidiEvent &event, std::string_view payload, MidiTime time);
    void readMeter(std::string_view payload, MidiTime time);
    void readKey(std::string_view payload, MidiTime time);
    void readSequencerEvent(std::string_view payload, MidiTime time);
    void endOpenNotes(MidiTime end);
    void chooseSounds();

    const MidiFile &_file;
    MidiMusic &_music;
    MidiOddities &_oddities;
    MidiTime _wholeTick; ///< length of a tick; 0 if it is not a whole number
    std::vector<KeyChange> _keys;
    std::array<bool, midiChannels> _isRhythm = {};
    std::vector<Open> _open;

    // Of the track.
    int _number = -1;
    MidiTime _start = 0;
    std::size_t _left = 0; ///< notes that sound
    MidiTrackContent _content;
    std::array<SoundChange, midiChannels> _selected; ///< as the banks were chosen last
    std::vector<TimedBar> _bars; ///< as they are written, where the file says it
};

} // namespace zarn::io
