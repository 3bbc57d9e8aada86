// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>
#include <ZarnAudio/ZarnPlanSound.h>
#include <ZarnAudio/ZarnSynthesizer.h>
#include <ZarnAudio/ZarnTimedEvent.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zarn::playback {
class PlaybackPlan;
}

namespace Halvec::audio {

class AudioWriter;

/// Renders a plan by a sound font: the same frames every time.
class ZARNAUDIO_EXPORT ScoreRenderer {
public:
    struct Settings {
        int rate = 44100;      ///< frames per second
        double gain = 6;       ///< decibels
        bool hasReverb = true; ///< chorus too
    };

    ScoreRenderer(const zarn::playback::PlaybackPlan &plan, const Settings &settings);
    ~ScoreRenderer();
    ScoreRenderer(const ScoreRenderer &) = delete;
    ScoreRenderer &operator=(const ScoreRenderer &) = delete;

    /// False and the reason when the font cannot be loaded; without one nothing is heard.
    bool loadFont(const std::string &path, std::string *error);

    void setGain(double decibels) noexcept { _settings.gain = decibels; }

    /// Renders one track from now on, as it is in the whole: the sound of all tracks together, one
    /// by one, is that of the score, but for the limiter. None means all of them.
    void setTrack(std::optional<unsigned> track) noexcept { _track = track; }

    /// Asked again and again while it renders: true ends that.
    void setStop(std::function<bool()> stop) { _stop = std::move(stop); }

    /// The highest value of a frame without the gain, 1.0 for full scale; renders everything.
    float peak();

    /// Renders everything into a file of two channels and the renderer's rate, a limiter keeps it
    /// below full scale. False at the writer's first error and when it was stopped; the file is
    /// left to be finished.
    bool write(AudioWriter &writer);

private:
    ScoreRenderer(const PlanSound &sound, const Settings &settings);

    using Take = std::function<bool(float *frames, std::int64_t count)>;
    bool render(const Take &take);

    Settings _settings;
    std::vector<TimedEvent> _events;
    std::vector<unsigned> _trackOf; ///< by channel
    std::optional<unsigned> _track;
    std::function<bool()> _stop;
    std::int64_t _end; ///< of the last bar or sound
    Synthesizer _synthesizer;
};

} // namespace Halvec::audio
