// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>
#include <ZarnAudio/ZarnTimedEvent.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zarn {
class Sound;
}

namespace zarn::playback {
class PlaybackPlan;
}

namespace Halvec::audio {

/// Which channels of a synthesizer play a plan, and what they do.
///
/// Each lane of the plan has a channel for General MIDI, and one for each bank that plays some of
/// its notes: those that begin while a sound with a patch holds, and of a drum kit those of an
/// element each. There are no more channels than a synthesizer can have; what finds none is not
/// played. Times are counted from the first sound of the plan, so that nothing begins in front of
/// frame 0. The plan lasts as long as this is used.
class ZARNAUDIO_EXPORT PlanSound {
public:
    struct Channel {
        bool isUsed = false;
        std::uint16_t track = 0;
        bool isPercussion = false;
        std::string bank; ///< the file of the bank; empty for General MIDI
    };

    /// The file of the bank that plays a note, as `bankOfNote` tells it.
    using BankChoice =
        std::function<std::string(const zarn::Sound &sound, bool isPercussion, int key)>;

    /// By General MIDI alone without a choice.
    explicit PlanSound(const zarn::playback::PlaybackPlan &plan, const BankChoice &bankOf = {});
    ~PlanSound();

    /// By number: lanes first, those of banks from the last possible one down.
    const std::vector<Channel> &channels() const noexcept { return _channels; }

    /// All that is played, at a speed: 2 is twice as fast, at the same pitch.
    std::vector<TimedEvent> events(int rate, double speed = 1) const;

    /// The frame at which the plan ends: its last bar, or its last sound.
    std::int64_t end(int rate, double speed = 1) const;

private:
    void findBanks(const BankChoice &bankOf);

    static constexpr std::uint8_t notPlayed = 255;

    const zarn::playback::PlaybackPlan &_plan;
    std::vector<Channel> _channels;
    std::vector<std::uint8_t> _channelOf; ///< by note
};

} // namespace Halvec::audio
