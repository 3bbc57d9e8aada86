// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>
#include <ZarnAudio/ZarnTimedEvent.h>

#include <cstdint>
#include <string>
#include <vector>

namespace zarn::playback {
class PlaybackPlan;
}

namespace Halvec::audio {

class Synthesizer;

/// Which channels of a synthesizer play a plan, and what they do.
///
/// There are no more channels than a synthesizer can have; what finds none is not played. Times are
/// counted from the first sound of the plan, so that nothing begins in front of frame 0.
/// The plan lasts as long as this is used.
class ZARNAUDIO_EXPORT PlanSound {
public:
    struct Channel {
        std::uint16_t track = 0;
        std::uint16_t lane = 0; ///< of the plan
        bool isPercussion = false;
    };

    explicit PlanSound(const zarn::playback::PlaybackPlan &plan);
    ~PlanSound();

    const std::vector<Channel> &channels() const noexcept { return _channels; }

    /// All that is played, at a speed: 2 is twice as fast, at the same pitch.
    std::vector<TimedEvent> events(int rate, double speed = 1) const;

    /// The frame at which the plan ends: its last bar, or its last sound.
    std::int64_t end(int rate, double speed = 1) const;

private:
    const zarn::playback::PlaybackPlan &_plan;
    std::vector<Channel> _channels;
};

} // namespace Halvec::audio
