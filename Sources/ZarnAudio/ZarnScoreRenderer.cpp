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
    do
        _sound = std::make_unique<PlanSound>(_banks->soundOf(plan, settings.bankOf));
    while (!makeSynthesizer());
    _events = _sound->events(settings.rate);
    _end = _sound->end(settings.rate);
    if (settings.bars)
        cut(plan, settings.bars->first, settings.bars->second);
}

ScoreRenderer::~ScoreRenderer() = default;

void ScoreRenderer::cut(const PlaybackPlan &plan, unsigned first, unsigned last)
{
    const auto &bars = plan.bars().bars();
    const auto stretch = plan.bars().within(first, last);
    if (stretch.begin == stretch.end) {
        _end = 0;
        _isCut = true;
        endNotes();
        return;
    }
    const double origin = plan.tempo().secondsAt(plan.start());
    const auto frameOf = [&](double second) -> std::int64_t {
        return std::llround((second - origin) * _settings.rate);
    };
    if (stretch.begin > 0) {
        // Grace notes may be heard in front of their bar.
        double second = plan.tempo().secondsAt(bars[stretch.begin].start);
        for (const auto &note : plan.notes())
            if (note.playedBar == stretch.begin)
                second = std::min(second, note.startSecond);
        _begin = frameOf(second);
    }
    if (stretch.end < bars.size()) {
        _end = frameOf(plan.tempo().secondsAt(bars[stretch.end].start));
        _isCut = true;
        endNotes();
    }
}

/// Nothing begins behind the end, and what sounds there ends. That is done a few blocks late, for
/// it is heard up to two of them early.
void ScoreRenderer::endNotes()
{
    constexpr std::int64_t late = 3 * Synthesizer::blockFrames;
    using Kind = TimedEvent::Kind;
    _events.erase(std::remove_if(_events.begin(), _events.end(),
                                 [this](const TimedEvent &event) {
                                     return event.frame >= _end && event.kind != Kind::NoteOff;
                                 }),
                  _events.end());
    for (TimedEvent &event : _events)
        event.frame = std::min(event.frame, _end + late);
    for (std::size_t channel = 0; channel < _sound->channels().size(); ++channel)
        _events.push_back({_end + late, Kind::Controller, static_cast<std::uint8_t>(channel),
                           zarn::playback::SustainController, 0, 0});
}

void ScoreRenderer::setRecordings(std::vector<PlacedRecording> recordings)
{
    _recordings = std::move(recordings);
    if (!_isCut)
        for (const PlacedRecording &recording : _recordings)
            _end = std::max(_end, recording.start + recording.sound->frames());
}

void ScoreRenderer::addRecordings(float *frames, std::int64_t from, std::int64_t count) const
{
    if (_isCut)
        count = std::min(count, _end - from);
    if (!_track && count > 0)
        for (const PlacedRecording &recording : _recordings)
            recording.add(frames, from, count);
}

/// False when some bank cannot be loaded.
bool ScoreRenderer::makeSynthesizer()
{
    const auto &channels = _sound->channels();
    Synthesizer::Settings wanted;
    wanted.rate = _settings.rate;
    wanted.channels = static_cast<int>(channels.size());
    wanted.hasReverb = wanted.hasChorus = _settings.hasReverb;
    auto made = std::make_unique<Synthesizer>(wanted);
    made->setReverb(_settings.master.roomSize, _settings.master.reverbLevel);
    for (std::size_t i = 0; i < channels.size(); ++i)
        made->setPercussion(static_cast<int>(i), channels[i].isPercussion);
    if (!_banks->load(*made, *_sound) || (!_font.empty() && !made->loadFont(_font, nullptr)))
        return false;
    _synthesizer = std::move(made);
    return true;
}

bool ScoreRenderer::loadFont(const std::string &path, std::string *error)
{
    if (!_synthesizer->loadFont(path, error))
        return false;
    _font = path;
    return true;
}

bool ScoreRenderer::render(const Take &take)
{
    constexpr std::int64_t blockFrames = 4096;
    std::vector<float> block(2 * blockFrames);
    // FluidSynth lets a voice begin where another one ended: every rendering has a fresh one.
    if (_isUsed && !makeSynthesizer())
        _synthesizer->reset();
    _isUsed = true;
    auto events = _events;
    if (_track)
        events.erase(std::remove_if(events.begin(), events.end(),
                                    [this](const TimedEvent &event) {
                                        return _sound->channels()[event.channel].track != *_track;
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
        addRecordings(block.data(), from, count);
        for (std::int64_t i = 0; i < count; ++i) {
            block[static_cast<std::size_t>(2 * i)] *= _settings.master.left;
            block[static_cast<std::size_t>(2 * i + 1)] *= _settings.master.right;
        }
        if (!take(block.data(), from, count) || (_stop && _stop()))
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
    render([&](const float *frames, std::int64_t from, std::int64_t count) {
        for (std::int64_t i = 2 * std::max<std::int64_t>(0, _begin - from); i < 2 * count; ++i)
            highest = std::max(highest, std::abs(frames[i]));
        return true;
    });
    return highest;
}

bool ScoreRenderer::write(AudioWriter &writer)
{
    const auto gain = static_cast<float>(decibels(_settings.gain));
    Limiter limiter(_settings.rate, fullScale);
    auto late = limiter.latency() + _begin;
    const auto process = [&](float *frames, std::int64_t, std::int64_t count) {
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
    return !writer.hasError() && process(rest.data(), 0, limiter.latency());
}

} // namespace Halvec::audio
