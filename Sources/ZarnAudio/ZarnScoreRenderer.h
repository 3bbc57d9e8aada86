// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>
#include <ZarnAudio/ZarnMasterSound.h>
#include <ZarnAudio/ZarnPlanSound.h>
#include <ZarnAudio/ZarnRecording.h>
#include <ZarnAudio/ZarnSoundbanks.h>
#include <ZarnAudio/ZarnSynthesizer.h>
#include <ZarnAudio/ZarnTimedEvent.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zarn::playback {
class PlaybackPlan;
}

namespace Halvec::audio {

class AudioWriter;

/// Renders a plan, by the banks that are installed for its sounds and by a General MIDI sound font:
/// the same frames every time.
class ZARNAUDIO_EXPORT ScoreRenderer {
public:
    struct Settings {
        int rate = 44100;      ///< frames per second
        double gain = 6;       ///< decibels
        bool hasReverb = true; ///< chorus too
        MasterSound master;
        PlanSound::BankChoice bankOf = bankOfNote; ///< none plays all by General MIDI

        /// Renders the bars `first` to `second` alone, from the first time that one of them is
        /// played until they are left: frame by frame what the whole has there, with what rings
        /// into them. Behind them, from the last half block on, no note begins, and those that
        /// sound end.
        std::optional<std::pair<unsigned, unsigned>> bars;
    };

    ScoreRenderer(const zarn::playback::PlaybackPlan &plan, const Settings &settings);
    ~ScoreRenderer();
    ScoreRenderer(const ScoreRenderer &) = delete;
    ScoreRenderer &operator=(const ScoreRenderer &) = delete;

    /// Why banks that are installed cannot be played, by their files; General MIDI plays what they
    /// should.
    const std::map<std::string, std::string> &refusedBanks() const noexcept
    {
        return _banks->refused();
    }

    /// False and the reason when the font cannot be loaded; without one only banks are heard.
    bool loadFont(const std::string &path, std::string *error);

    void setGain(double decibels) noexcept { _settings.gain = decibels; }

    /// Renders one track from now on, as it is in the whole: all tracks together, one by one, are
    /// the score, but for the limiter and for how FluidSynth lets a voice of a font begin, whose
    /// level comes within 64 frames from that of the voice before. None means all of them.
    void setTrack(std::optional<unsigned> track) noexcept { _track = track; }

    /// Recordings that play along with the whole, at the renderer's rate. What is behind the last
    /// note is rendered too.
    void setRecordings(std::vector<PlacedRecording> recordings);

    /// Asked again and again while it renders: true ends that.
    void setStop(std::function<bool()> stop) { _stop = std::move(stop); }

    /// The frames of the whole that are rendered, `end` without what fades out behind it.
    std::int64_t begin() const noexcept { return _begin; }
    std::int64_t end() const noexcept { return _end; }

    /// The highest value of a frame without the gain, 1.0 for full scale; renders everything.
    float peak();

    /// Renders everything into a file of two channels and the renderer's rate, a limiter keeps it
    /// below full scale. False at the writer's first error and when it was stopped; the file is
    /// left to be finished.
    bool write(AudioWriter &writer);

private:
    /// Takes frames from the first one of the score on, `from` and those behind it.
    using Take = std::function<bool(float *frames, std::int64_t from, std::int64_t count)>;
    bool render(const Take &take);
    bool makeSynthesizer();
    void cut(const zarn::playback::PlaybackPlan &plan, unsigned first, unsigned last);
    void endNotes();
    void addRecordings(float *frames, std::int64_t from, std::int64_t count) const;

    Settings _settings;
    std::vector<TimedEvent> _events;
    std::optional<unsigned> _track;
    std::vector<PlacedRecording> _recordings;
    std::function<bool()> _stop;
    std::int64_t _begin = 0;
    std::int64_t _end = 0; ///< of the last bar or sound
    bool _isCut = false;   ///< there is more music behind the end
    std::string _font;
    bool _isUsed = false;
    std::unique_ptr<PlanSound> _sound;  ///< for its channels: the plan may be gone
    std::unique_ptr<Soundbanks> _banks; ///< outlives the synthesizer
    std::unique_ptr<Synthesizer> _synthesizer;
};

} // namespace Halvec::audio
