// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/instruments/effects/ZarnVolumePan.h>
#include <ZarnCore/model/attributes/ZarnSyllable.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zarn {

/// Where the notes of a track go when they are sent as MIDI. Bent notes have a channel of their
/// own, so that the others stay in tune; it may be the same one.
struct MidiConnection {
    static constexpr unsigned PortCount = 16;
    static constexpr unsigned ChannelCount = 16;
    static constexpr std::uint8_t PercussionChannel = 9; ///< of General MIDI, counted from 0

    std::uint8_t port = 0;
    std::uint8_t channel = 0;
    std::uint8_t bendChannel = 1;

    constexpr bool isValid() const noexcept
    {
        return port < PortCount && channel < ChannelCount && bendChannel < ChannelCount;
    }

    friend constexpr bool operator==(const MidiConnection &left,
                                     const MidiConnection &right) noexcept
    {
        return left.port == right.port && left.channel == right.channel
            && left.bendChannel == right.bendChannel;
    }
    friend constexpr bool operator!=(const MidiConnection &left,
                                     const MidiConnection &right) noexcept
    {
        return !(left == right);
    }
};

/// How a track is played, heard and laid out, whatever its notes say.
struct ZARNCORE_EXPORT TrackSettings {
    static constexpr std::uint8_t AllLyrics = 31;
    static constexpr int NoForcedSound = -1;

    PlayingStyle playingStyle = PlayingStyle::Default;
    float palmMuteStrength = 0.5F; ///< how much palm muting dampens, 0 to 1
    bool letRingThroughout = false;
    bool autoAccentuation = false;    ///< beats of the meter are accented in playback
    bool autoBrush = false;           ///< chords of three notes and more are strummed in playback
    bool oneChannelPerString = false; ///< in MIDI
    ZarnVolumePan volumePan;
    TrackPlayback playback = TrackPlayback::Normal;

    /// The sound that the track is played with throughout; -1 leaves it to the automations.
    int forcedSoundIndex = NoForcedSound;

    /// Nothing leaves it to the instrument, see `Track::midiConnection`.
    std::optional<MidiConnection> midiConnection;

    /// Bars per system in the track's own layout, from the first system on; systems behind the
    /// list hold the default number, or as many as find room when that is 0.
    std::vector<int> systemsLayout;
    unsigned defaultBarCountBySystem = 0;

    /// The lines of lyrics that are shown, bit 0 the first.
    std::uint8_t lyricsVisible = AllLyrics;

    /// Lyrics for which no notes are left, by line, as `lyricsToText` writes them. They go to notes
    /// that come later, when their line is laid out again.
    std::array<std::string, Syllable::LineCount> lyricsLeftOver;

    bool isValid() const noexcept;

    friend ZARNCORE_EXPORT bool operator==(const TrackSettings &left, const TrackSettings &right);
    friend bool operator!=(const TrackSettings &left, const TrackSettings &right)
    {
        return !(left == right);
    }
};

} // namespace zarn
