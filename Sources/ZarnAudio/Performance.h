// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/Metronome.h>
#include <ZarnAudio/ZarnEventRenderer.h>
#include <ZarnAudio/ZarnEventSequence.h>
#include <ZarnAudio/ZarnMasterSound.h>
#include <ZarnAudio/ZarnMixer.h>
#include <ZarnAudio/ZarnPlanSound.h>
#include <ZarnAudio/ZarnRecording.h>
#include <ZarnAudio/ZarnSynthesizer.h>
#include <ZarnCore/ZarnTypesEditing.h>
#include <ZarnCore/playback/ZarnPlaybackPlan.h>

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace Halvec::audio {

/// A synthesizer and what plays on it; performances share it as long as they need the same banks
/// and the same reverb, which FluidSynth would lock for to change.
struct Instrument {
    Instrument(const Synthesizer::Settings &settings, std::vector<std::string> played,
               const MasterSound &heard)
        : banks(std::move(played)), master(heard), synthesizer(settings), renderer(synthesizer)
    {
        synthesizer.setReverb(master.roomSize, master.reverbLevel);
    }

    bool hasReverbOf(const MasterSound &other) const noexcept
    {
        return master.roomSize == other.roomSize && master.reverbLevel == other.reverbLevel;
    }

    std::vector<std::string> banks; ///< files, by channel
    MasterSound master;

    Synthesizer synthesizer;
    EventRenderer renderer; ///< of the thread that plays alone
};

/// A beat of the metronome.
struct Click {
    std::int64_t frame = 0;
    bool isBarStart = false;
};

/// What is played of a score, whatever the speed.
struct Program {
    Program(const zarn::ScoreModel &model, const zarn::playback::PlanOptions &options);

    zarn::playback::PlaybackPlan plan;
    std::vector<BarBeats> beats;               ///< of the metronome, by bar
    std::vector<zarn::TrackPlayback> switches; ///< by track
    MasterSound master;
    std::vector<std::shared_ptr<zarn::AudioTrack>> audioTracks; ///< copies
};

/// A program made ready to be played at a speed. It never changes.
struct Performance {
    /// The mixer gets the channels that play its tracks. The instrument has the banks of the sound.
    /// Recordings join later.
    Performance(std::shared_ptr<const Program> program, const PlanSound &sound,
                std::shared_ptr<Instrument> instrument, Mixer &mixer, double speed);

    std::shared_ptr<const Program> program;
    std::shared_ptr<Instrument> instrument;
    EventSequence events;
    std::array<bool, Synthesizer::mostChannels> isPercussion{}; ///< by channel
    std::vector<Click> clicks;                                  ///< in order of time
    std::vector<TimedEvent> mix; ///< levels and places of the channels, to begin with
    std::int64_t end = 0;        ///< of the last bar or sound
    MasterSound master;
    std::vector<PlacedRecording> recordings; ///< none at another speed than the usual one

    double origin = 0;          ///< second of frame 0 in the plan
    double framesPerSecond = 0; ///< of the plan

    double secondOf(std::int64_t frame) const noexcept
    {
        return origin + static_cast<double>(frame) / framesPerSecond;
    }
    std::int64_t frameOf(double second) const noexcept;
};

} // namespace Halvec::audio
