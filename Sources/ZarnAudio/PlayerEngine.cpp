// SPDX-License-Identifier: MIT
#include <ZarnAudio/PlayerEngine.h>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace Halvec::audio {

namespace {

using Kind = PlayerCommand::Kind;
using Ringing = EventRenderer::Ringing;

constexpr float fullScale = 0.99F;
constexpr std::int64_t fadeFrames = 256;
constexpr double longestTail = 4;        ///< seconds that the last sounds may take to fade out
constexpr std::int64_t turnFrames = 128; ///< within which the renderer goes elsewhere

std::int64_t clockTime() noexcept
{
    using namespace std::chrono;
    return duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace

PlayerEngine::PlayerEngine(int rate) : _rate(rate), _click(rate), _limiter(rate, fullScale) { }

std::int64_t PlayerEngine::frame() const noexcept
{
    return _state == State::Playing ? _performance->instrument->renderer.position() : _rest;
}

double PlayerEngine::second() const noexcept
{
    return _performance == nullptr ? 0 : _performance->secondOf(frame());
}

void PlayerEngine::setLoop() noexcept
{
    _performance->instrument->renderer.setLoop(
        _performance->frameOf(_loopBegin),
        _loopEnd > _loopBegin ? _performance->frameOf(_loopEnd) : 0);
}

void PlayerEngine::seek(std::int64_t frame) noexcept
{
    if (_state == State::Playing) {
        _performance->instrument->renderer.jump(_performance->events, frame, Ringing::End);
        _tail = 0;
    } else {
        _rest = frame;
        _state = _state == State::Finished ? State::Paused : _state;
    }
    _notLess = _performance->secondOf(frame);
}

void PlayerEngine::take(const Performance &performance, double shift) noexcept
{
    const Performance *const before = _performance;
    const double second = this->second() + shift;
    const auto frame = performance.frameOf(second);
    Instrument &instrument = *performance.instrument;
    const bool isOther = before == nullptr || before->instrument.get() != &instrument;
    if (isOther && _state == State::Playing) {
        before->instrument->renderer.render(_leaving.data(), fadeFrames);
        for (std::size_t i = 0; i < _leaving.size(); ++i)
            _leaving[i] *= 1 - static_cast<float>(i / 2) / fadeFrames;
        _isLeaving = true;
    }
    _performance = &performance;
    for (std::size_t channel = 0; channel < performance.isPercussion.size(); ++channel)
        if (instrument.synthesizer.isPercussion(static_cast<int>(channel))
            != performance.isPercussion[channel])
            instrument.synthesizer.setPercussion(static_cast<int>(channel),
                                                 performance.isPercussion[channel]);
    for (const TimedEvent &event : performance.mix)
        instrument.synthesizer.apply(event);
    if (_state != State::Playing)
        _rest = frame;
    else if (isOther)
        instrument.renderer.start(performance.events, frame);
    else
        instrument.renderer.jump(performance.events, frame, Ringing::Hold);
    setLoop();
    _notLess = performance.secondOf(frame);
    if (before != nullptr)
        _retired.push(before);
}

void PlayerEngine::play(const PlayerCommand &command) noexcept
{
    _fading = 0;
    if (_state == State::Playing || _state == State::CountingIn)
        return;
    if (_state == State::Finished)
        _rest = 0;
    const bool loops = _loopEnd > _loopBegin;
    if (loops
        && (_rest < _performance->frameOf(_loopBegin)
            || _rest + turnFrames >= _performance->frameOf(_loopEnd)))
        _rest = _performance->frameOf(_loopBegin);
    _tail = 0;
    _notLess = _performance->secondOf(_rest);
    _counted = 0;
    _beats = std::max(command.beats, 0);
    _beatsPerBar = std::max(command.beatsPerBar, 1);
    _beatFrames = command.second * _performance->framesPerSecond;
    _state = State::CountingIn;
}

void PlayerEngine::obey(const PlayerCommand &command) noexcept
{
    _obeyed = command.number;
    if (command.kind == Kind::Take) {
        take(*command.performance, command.second);
        return;
    }
    if (command.kind == Kind::Metronome) {
        _hasMetronome = command.second != 0;
        return;
    }
    if (command.kind == Kind::Gain) {
        _wantedGain = static_cast<float>(command.second);
        return;
    }
    if (_performance == nullptr)
        return;
    switch (command.kind) {
    case Kind::Play:
        play(command);
        return;
    case Kind::Pause:
        if (_state == State::CountingIn) {
            _state = State::Paused;
        } else if (_state == State::Playing && _fading == 0) {
            _rest = frame();
            _fading = fadeFrames;
        }
        return;
    case Kind::Seek:
        seek(_performance->frameOf(command.second));
        return;
    case Kind::Loop: {
        _loopBegin = command.second;
        _loopEnd = command.end;
        setLoop();
        const bool isOutside =
            second() < _loopBegin || frame() + turnFrames >= _performance->frameOf(_loopEnd);
        if (_loopEnd > _loopBegin && isOutside && _state == State::Playing)
            seek(_performance->frameOf(_loopBegin));
        return;
    }
    case Kind::Change:
        _performance->instrument->synthesizer.apply(command.event);
        return;
    default:
        return;
    }
}

std::int64_t PlayerEngine::renderCountIn(float *frames, std::int64_t count) noexcept
{
    // Up to the next beat, or to the music.
    const auto beat = static_cast<int>(std::ceil(static_cast<double>(_counted) / _beatFrames));
    const auto frameOf = [this](int number) -> std::int64_t {
        return std::llround(number * _beatFrames);
    };
    if (_beats == 0 || _counted >= frameOf(_beats)) {
        _performance->instrument->renderer.start(_performance->events, _rest);
        setLoop();
        _state = State::Playing;
        return 0;
    }
    if (_counted == frameOf(beat))
        _click.strike(beat % _beatsPerBar == 0);
    const auto next = frameOf(_counted >= frameOf(beat) ? beat + 1 : beat);
    const auto part = std::min(count, next - _counted);
    std::fill(frames, frames + 2 * part, 0.0F);
    _click.add(frames, part);
    _counted += part;
    return part;
}

std::int64_t PlayerEngine::renderMusic(float *frames, std::int64_t count) noexcept
{
    EventRenderer &renderer = _performance->instrument->renderer;
    const auto from = renderer.position();
    auto part = renderer.straight(count);
    // To the next beat of the metronome.
    const auto &clicks = _performance->clicks;
    const auto click = std::partition_point(
        clicks.begin(), clicks.end(), [from](const Click &each) { return each.frame < from; });
    if (click != clicks.end()) {
        if (click->frame == from && _hasMetronome)
            _click.strike(click->isBarStart);
        const auto next = click->frame == from ? std::next(click) : click;
        if (next != clicks.end())
            part = std::min(part, next->frame - from);
    }
    if (_fading > 0)
        part = std::min<std::int64_t>(part, _fading);
    renderer.render(frames, part);
    for (const PlacedRecording &recording : _performance->recordings)
        recording.add(frames, from, part);
    _click.add(frames, part);
    if (renderer.position() < from)
        _notLess = _performance->secondOf(renderer.position());
    if (_fading > 0) {
        for (std::int64_t i = 0; i < 2 * part; ++i)
            frames[i] *= static_cast<float>(_fading - i / 2) / fadeFrames;
        _fading -= part;
        if (_fading == 0) {
            _state = State::Paused;
            _click.stop();
        }
    } else if (from >= _performance->end && _loopEnd <= _loopBegin) {
        _tail += part;
        if (renderer.isDone() || _tail > static_cast<std::int64_t>(longestTail * _rate)) {
            _rest = _performance->end;
            _state = State::Finished;
        }
    }
    return part;
}

std::int64_t PlayerEngine::renderPart(float *frames, std::int64_t count) noexcept
{
    switch (_state) {
    case State::Playing:
        return renderMusic(frames, count);
    case State::CountingIn:
        return renderCountIn(frames, count);
    default:
        std::fill(frames, frames + 2 * count, 0.0F);
        return count;
    }
}

void PlayerEngine::mixDown(float *frames, std::int64_t count) noexcept
{
    if (_isLeaving && count > 0) {
        const auto part =
            std::min<std::size_t>(static_cast<std::size_t>(2 * count), _leaving.size());
        for (std::size_t i = 0; i < part; ++i)
            frames[i] += _leaving[i];
        _isLeaving = false;
    }
    const MasterSound master = _performance == nullptr ? MasterSound() : _performance->master;
    const float step = (_wantedGain - _gain) / static_cast<float>(std::max<std::int64_t>(count, 1));
    for (std::int64_t i = 0; i < count; ++i) {
        _gain += step;
        frames[2 * i] *= _gain * master.left;
        frames[2 * i + 1] *= _gain * master.right;
    }
    _gain = _wantedGain;
    _limiter.process(frames, count);
}

void PlayerEngine::render(float *frames, std::int64_t count) noexcept
{
    const auto time = clockTime();
    _commands.consume_all([this](const PlayerCommand &command) { obey(command); });
    const double from = second();
    for (std::int64_t done = 0; done < count;)
        done += renderPart(frames + 2 * done, count - done);
    mixDown(frames, count);
    publish(from, time);
    countLate(time, count);
}

void PlayerEngine::countLate(std::int64_t time, std::int64_t frames) noexcept
{
    const double taken = static_cast<double>(clockTime() - time) * 1e-9;
    if (frames > 0 && taken * _rate > static_cast<double>(frames))
        _lateBlocks.store(_lateBlocks.load(std::memory_order_relaxed) + 1);
}

void PlayerEngine::publish(double from, std::int64_t time) noexcept
{
    // Odd while it is written; each store is seen after the first and before the last.
    const unsigned version = _version.load(std::memory_order_relaxed);
    _version.store(version + 1);
    _shownState.store(_state);
    _shownSecond.store(from);
    _shownUntil.store(second());
    _shownNotLess.store(_notLess);
    _shownTime.store(time);
    _shownObeyed.store(_obeyed);
    _version.store(version + 2);
}

PlayerEngine::Status PlayerEngine::status() const noexcept
{
    for (;;) {
        const unsigned version = _version.load();
        if (version % 2 != 0)
            continue;
        const Status status{_shownState, _shownSecond, _shownUntil, _shownNotLess,
                            _shownTime,  _shownObeyed, _lateBlocks};
        if (_version.load() == version)
            return status;
    }
}

} // namespace Halvec::audio
