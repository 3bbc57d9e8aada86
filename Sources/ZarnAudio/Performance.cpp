// SPDX-License-Identifier: MIT
#include <ZarnAudio/Performance.h>

#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <cmath>

namespace Halvec::audio {

namespace {

using zarn::playback::Audibility;
using zarn::playback::PlanOptions;

/// All tracks are there, so that each can be switched on while it plays.
PlanOptions withEverything(PlanOptions options)
{
    options.audibility = Audibility::Everything;
    return options;
}

} // namespace

Program::Program(const zarn::ScoreModel &model, const PlanOptions &options)
    : plan(model, withEverything(options)), beats(beatsOf(model)),
      master(masterSoundOf(model.masterTrack()->mastering()))
{
    for (const auto &track : model.audioTracks())
        audioTracks.push_back(std::make_shared<zarn::AudioTrack>(*track));
    for (const auto &track : model.tracks())
        switches.push_back(options.audibility == Audibility::Everything
                               ? zarn::TrackPlayback::Normal
                               : track->playback());
}

Performance::Performance(std::shared_ptr<const Program> played, const PlanSound &sound,
                         std::shared_ptr<Instrument> playedBy, Mixer &mixer, double speed)
    : program(std::move(played)), instrument(std::move(playedBy))
{
    const auto &plan = program->plan;
    const int rate = instrument->synthesizer.settings().rate;
    origin = plan.tempo().secondsAt(plan.start());
    framesPerSecond = rate / speed;
    end = sound.end(rate, speed);
    events = EventSequence(sound.events(rate, speed), instrument->synthesizer);
    for (auto &strip : mixer.strips())
        strip.channels.clear();
    for (std::size_t i = 0; i < sound.channels().size(); ++i) {
        const auto &channel = sound.channels()[i];
        isPercussion[i] = channel.isPercussion;
        if (channel.isUsed && channel.track < mixer.strips().size())
            mixer.strips()[channel.track].channels.push_back(static_cast<std::uint8_t>(i));
    }
    mix = mixer.events(0);
    for (const PlannedClick &click : clicksOf(plan, program->beats)) {
        const auto frame = frameOf(click.second);
        if (clicks.empty() || clicks.back().frame < frame)
            clicks.push_back({frame, click.isBarStart});
    }
    master = program->master;
}

std::int64_t Performance::frameOf(double second) const noexcept
{
    constexpr double most = 1e15;
    const double frame = (second - origin) * framesPerSecond;
    return std::max<std::int64_t>(0, std::llround(std::clamp(frame, -most, most)));
}

} // namespace Halvec::audio
