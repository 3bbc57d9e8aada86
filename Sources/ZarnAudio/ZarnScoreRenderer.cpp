// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnScoreRenderer.h>

#include <ZarnAudio/ZarnAudioWriter.h>
#include <ZarnAudio/ZarnEventRenderer.h>
#include <ZarnAudio/ZarnLimiter.h>
#include <ZarnCore/playback/ZarnPlaybackPlan.h>

#include <algorithm>
#include <cmath>

namespace Halvec::audio {

namespace {

using zarn::playback::PlaybackPlan;

constexpr float fullScale = 0.99F;

/// Seconds that reverb goes on for, and that a note may take to fade out.
constexpr double reverbTail = 1.5;
constexpr double longestTail = 10;

double decibels(double value)
{
    return std::pow(10.0, value / 20);
}

} // namespace

ScoreRenderer::ScoreRenderer(const PlaybackPlan &plan, const Settings &settings)
    : _settings(settings), _banks(std::make_unique<Soundbanks>())
{
    Synthesizer::Settings wanted;
    wanted.rate = settings.rate;
    wanted.hasReverb = wanted.hasChorus = settings.hasReverb;
    for (;;) {
        const PlanSound sound = _banks->soundOf(plan, settings.bankOf);
        wanted.channels = static_cast<int>(sound.channels().size());
        _synthesizer = std::make_unique<Synthesizer>(wanted);
        if (!_banks->load(*_synthesizer, sound))
            continue;
        _synthesizer->setReverb(settings.master.roomSize, settings.master.reverbLevel);
        _events = sound.events(settings.rate);
        _end = sound.end(settings.rate);
        for (const auto &channel : sound.channels()) {
            _synthesizer->setPercussion(static_cast<int>(_trackOf.size()), channel.isPercussion);
            _trackOf.push_back(channel.track);
        }
        return;
    }
}

ScoreRenderer::~ScoreRenderer() = default;

bool ScoreRenderer::loadFont(const std::string &path, std::string *error)
{
    return _synthesizer->loadFont(path, error);
}

bool ScoreRenderer::render(const Take &take)
{
    constexpr std::int64_t blockFrames = 4096;
    std::vector<float> block(2 * blockFrames);
    _synthesizer->reset();
    auto events = _events;
    if (_track)
        events.erase(std::remove_if(events.begin(), events.end(),
                                    [this](const TimedEvent &event) {
                                        return _trackOf[event.channel] != *_track;
                                    }),
                     events.end());
    EventRenderer renderer(*_synthesizer, std::move(events));
    const auto seconds = [this](double time) { return std::int64_t(time * _settings.rate); };
    const auto last = _end + seconds(longestTail);
    std::int64_t end = last;
    while (renderer.position() < end) {
        const auto count = std::min(blockFrames, end - renderer.position());
        const auto from = renderer.position();
        renderer.render(block.data(), count);
        if (!_track)
            for (const PlacedRecording &recording : _recordings)
                recording.add(block.data(), from, count);
        for (std::int64_t i = 0; i < count; ++i) {
            block[static_cast<std::size_t>(2 * i)] *= _settings.master.left;
            block[static_cast<std::size_t>(2 * i + 1)] *= _settings.master.right;
        }
        if (!take(block.data(), count) || (_stop && _stop()))
            return false;
        const bool isOver = renderer.isDone() && renderer.position() >= _end;
        if (isOver && end == last)
            end = std::min(last,
                           renderer.position() + (_settings.hasReverb ? seconds(reverbTail) : 0));
    }
    return true;
}

float ScoreRenderer::peak()
{
    float highest = 0;
    render([&highest](const float *frames, std::int64_t count) {
        for (std::int64_t i = 0; i < 2 * count; ++i)
            highest = std::max(highest, std::abs(frames[i]));
        return true;
    });
    return highest;
}

bool ScoreRenderer::write(AudioWriter &writer)
{
    const auto gain = static_cast<float>(decibels(_settings.gain));
    Limiter limiter(_settings.rate, fullScale);
    auto late = limiter.latency();
    const auto process = [&](float *frames, std::int64_t count) {
        std::transform(frames, frames + 2 * count, frames,
                       [gain](float value) { return value * gain; });
        limiter.process(frames, count);
        const auto skipped = std::min(late, count);
        late -= skipped;
        return writer.write(frames + 2 * skipped, count - skipped);
    };
    if (!render(process))
        return false;
    std::vector<float> rest(static_cast<std::size_t>(2 * limiter.latency()), 0.0F);
    return !writer.hasError() && process(rest.data(), limiter.latency());
}

} // namespace Halvec::audio
