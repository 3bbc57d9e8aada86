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

using Kind = TimedEvent::Kind;
using zarn::playback::Lane;
using zarn::playback::PlannedControl;
using zarn::playback::PlannedNote;
using zarn::playback::PlaybackPlan;

constexpr std::size_t mostChannels = 256;
constexpr float fullScale = 0.99F;

/// Seconds that reverb goes on for, and that a note may take to fade out.
constexpr double reverbTail = 1.5;
constexpr double longestTail = 10;

double decibels(double value)
{
    return std::pow(10.0, value / 20);
}

std::size_t channelsOf(const PlaybackPlan &plan)
{
    return std::clamp<std::size_t>(plan.lanes().size(), 1, mostChannels);
}

/// The events of a plan, one kind after the other.
class EventMaker {
public:
    EventMaker(const PlaybackPlan &plan, int rate)
        : _plan(plan), _rate(rate), _origin(plan.tempo().secondsAt(plan.start()))
    {
    }

    std::vector<TimedEvent> make()
    {
        for (const PlannedControl &control : _plan.controls())
            addControl(control);
        for (const PlannedNote &note : _plan.notes())
            if (note.lane < channelsOf(_plan))
                addNote(note);
        return std::move(_events);
    }

    std::int64_t frameOf(double second) const { return std::llround((second - _origin) * _rate); }

private:
    void add(double second, Kind kind, std::size_t channel, int key, int value, double amount = 0)
    {
        _events.push_back({frameOf(second), kind, static_cast<std::uint8_t>(channel),
                           static_cast<std::uint8_t>(key), static_cast<std::uint8_t>(value),
                           amount});
    }

    /// A track sounds the same on all of its lanes, but for percussion, which has its own programs.
    void addControl(const PlannedControl &control)
    {
        for (std::size_t lane = 0; lane < channelsOf(_plan); ++lane) {
            if (_plan.lanes()[lane].track != control.track)
                continue;
            if (control.kind == PlannedControl::Kind::Controller)
                add(control.second, Kind::Controller, lane, control.number, control.value);
            else if (_plan.lanes()[lane].role != Lane::Role::Percussion)
                add(control.second, Kind::Program, lane, control.value >> 7, control.number);
        }
    }

    void addNote(const PlannedNote &note)
    {
        add(note.startSecond, Kind::NoteOn, note.lane, note.key, note.velocity);
        add(note.endSecond, Kind::NoteOff, note.lane, note.key, 0);
        const auto *const motion = _plan.motionOf(note);
        double semitones = motion == nullptr ? 0 : motion->semitonesAt(note.start);
        add(note.startSecond, Kind::Bend, note.lane, 0, 0, semitones);
        if (motion == nullptr)
            return;
        // A step for each block, when there is something to hear.
        constexpr double audible = 0.005;
        const double step = static_cast<double>(Synthesizer::blockFrames) / _rate;
        for (double second = note.startSecond + step; second < note.endSecond; second += step) {
            const double next = semitonesAt(*motion, _plan.tempo().quartersAt(second));
            if (std::abs(next - semitones) < audible)
                continue;
            semitones = next;
            add(second, Kind::Bend, note.lane, 0, 0, semitones);
        }
    }

    /// What the motion has between its points, without fractions, which grow large here.
    static double semitonesAt(const zarn::playback::PitchMotion &motion, double quarters)
    {
        const auto &points = motion.points;
        const auto next = std::find_if(points.begin(), points.end(), [quarters](const auto &point) {
            return point.time.toDouble() > quarters;
        });
        if (next == points.begin())
            return points.front().semitones;
        if (next == points.end())
            return points.back().semitones;
        const auto before = std::prev(next);
        const double start = before->time.toDouble();
        const double share = (quarters - start) / (next->time.toDouble() - start);
        return before->semitones + share * (next->semitones - before->semitones);
    }

    const PlaybackPlan &_plan;
    int _rate;
    double _origin;
    std::vector<TimedEvent> _events;
};

Synthesizer::Settings settingsOf(const PlaybackPlan &plan, const ScoreRenderer::Settings &settings)
{
    Synthesizer::Settings made;
    made.rate = settings.rate;
    made.channels = static_cast<int>(channelsOf(plan));
    made.hasReverb = settings.hasReverb;
    made.hasChorus = settings.hasReverb;
    return made;
}

} // namespace

std::vector<TimedEvent> timedEvents(const PlaybackPlan &plan, int rate)
{
    return EventMaker(plan, rate).make();
}

ScoreRenderer::ScoreRenderer(const PlaybackPlan &plan, const Settings &settings)
    : _settings(settings), _events(timedEvents(plan, settings.rate)),
      _end(EventMaker(plan, settings.rate).frameOf(plan.tempo().secondsAt(plan.end()))),
      _synthesizer(settingsOf(plan, settings))
{
    for (std::size_t lane = 0; lane < channelsOf(plan); ++lane)
        _synthesizer.setPercussion(static_cast<int>(lane),
                                   lane < plan.lanes().size()
                                       && plan.lanes()[lane].role == Lane::Role::Percussion);
}

ScoreRenderer::~ScoreRenderer() = default;

bool ScoreRenderer::loadFont(const std::string &path, std::string *error)
{
    return _synthesizer.loadFont(path, error);
}

void ScoreRenderer::render(const Take &take)
{
    constexpr std::int64_t blockFrames = 4096;
    std::vector<float> block(2 * blockFrames);
    _synthesizer.reset();
    EventRenderer renderer(_synthesizer, _events);
    const auto seconds = [this](double time) { return std::int64_t(time * _settings.rate); };
    const auto last = _end + seconds(longestTail);
    std::int64_t end = last;
    while (renderer.position() < end) {
        const auto count = std::min(blockFrames, end - renderer.position());
        renderer.render(block.data(), count);
        if (!take(block.data(), count))
            return;
        const bool isOver = renderer.isDone() && renderer.position() >= _end;
        if (isOver && end == last)
            end = std::min(last,
                           renderer.position() + (_settings.hasReverb ? seconds(reverbTail) : 0));
    }
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
    render(process);
    std::vector<float> rest(static_cast<std::size_t>(2 * limiter.latency()), 0.0F);
    return !writer.hasError() && process(rest.data(), limiter.latency());
}

} // namespace Halvec::audio
