// SPDX-License-Identifier: MIT
#include <ZarnAudio/PlayerControl.h>

#include <ZarnCore/events/ZarnBarEvents.h>
#include <ZarnCore/events/ZarnCommandEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

namespace Halvec::audio {

namespace {

using Kind = PlayerCommand::Kind;

double gainOf(double decibels)
{
    return std::pow(10.0, decibels / 20);
}

} // namespace

void BarSpan::insert(unsigned at, unsigned count) noexcept
{
    first += at <= first ? count : 0;
    last += at <= last ? count : 0;
}

bool BarSpan::remove(unsigned at, unsigned count) noexcept
{
    const auto before = [=](unsigned bar) {
        return std::min(bar, at) + (bar > at + count ? bar - at - count : 0);
    };
    first = before(first);
    const unsigned behind = before(last + 1);
    last = behind == 0 ? 0 : behind - 1;
    return behind > first;
}

PlayerControl::PlayerControl(const Settings &settings, std::unique_ptr<AudioOutput> output)
    : _settings(settings), _output(std::move(output)), _engine(settings.rate)
{
    send(Kind::Gain, gainOf(_gain));
}

bool PlayerControl::open(std::string *error)
{
    close();
    if (_font.empty()) {
        beginFont(std::launch::deferred);
        if (!takeFont(error))
            return false;
    }
    _isOpen = _output->open(_engine, _settings.rate, error);
    return _isOpen;
}

void PlayerControl::openLater()
{
    close();
    _isOpening = true;
    if (_font.empty())
        beginFont(std::launch::async);
}

/// What was asked for meanwhile is kept.
void PlayerControl::openWhenLoaded()
{
    if (_lateFont.isBusy())
        return;
    const bool isPlayWaiting = _isPlayWaiting;
    std::string error;
    const bool isDone = open(&error);
    _isPlayWaiting = isDone && isPlayWaiting;
    if (!isDone && failed)
        failed(error);
}

void PlayerControl::close() noexcept
{
    _output->close();
    _isOpen = false;
    _isOpening = false;
    // What was asked for is done here now.
    pause();
    std::array<float, 2 * 1024> fading;
    _engine.render(fading.data(), fading.size() / 2);
}

void PlayerControl::setScore(const zarn::ScoreModel &model,
                             const zarn::playback::PlanOptions &options)
{
    _connections.clear();
    _followed.reset();
    _hasChanged = false;
    _options = options;
    program(model);
}

void PlayerControl::follow(zarn::Score &score)
{
    setScore(*score.scoreModel(), {});
    _followed = score.scoreModel();
    using namespace zarn::evt;
    _connections.push_back(score.connectScoped<CommandExecuted>(
        this, [this](const CommandExecuted &) { _hasChanged = true; }));
    _connections.push_back(score.connectScoped<AddBars>(this, [this](const AddBars &event) {
        keepPlace();
        const auto at = static_cast<unsigned>(event.index());
        const auto count = static_cast<unsigned>(event.count());
        for (auto *const span : {&_kept, &_loop})
            if (*span)
                (*span)->insert(at, count);
    }));
    _connections.push_back(score.connectScoped<RemoveBars>(this, [this](const RemoveBars &event) {
        keepPlace();
        const auto at = static_cast<unsigned>(event.index());
        const auto count = static_cast<unsigned>(event.count());
        for (auto *const span : {&_kept, &_loop})
            if (*span && !(*span)->remove(at, count))
                span->reset();
    }));
}

std::shared_ptr<const PlayerControl::PlaybackPlan> PlayerControl::plan() const
{
    return _program ? std::shared_ptr<const PlaybackPlan>(_program, &_program->plan) : nullptr;
}

PlayerControl::State PlayerControl::state() const
{
    if (_isPlayWaiting)
        return State::Playing;
    const auto status = _engine.status();
    if (status.obeyed < _stateAsked)
        return _askedState;
    switch (status.state) {
    case PlayerEngine::State::Playing:
        return State::Playing;
    case PlayerEngine::State::CountingIn:
        return State::CountingIn;
    default:
        return State::Stopped;
    }
}

void PlayerControl::play()
{
    if (!_program || (!_isOpen && !_isOpening))
        return;
    if (_isOpening || _recordings.isBusy()) {
        _isPlayWaiting = true;
        return;
    }
    const auto &plan = _program->plan;
    double from = second();
    if (isFinished())
        from = plan.tempo().secondsAt(plan.start());
    if (const auto loop = loopSeconds(); loop && (from < loop->first || from >= loop->second))
        from = loop->first;
    const CountIn count = countInAt(plan, _program->beats, from, _countIn);
    PlayerCommand command;
    command.kind = Kind::Play;
    command.second = count.beatSeconds;
    command.beats = count.beats;
    command.beatsPerBar = count.beatsPerBar;
    _stateAsked = send(command);
    _askedState = count.beats > 0 ? State::CountingIn : State::Playing;
}

void PlayerControl::pause()
{
    _isPlayWaiting = false;
    _stateAsked = send(Kind::Pause);
    _askedState = State::Stopped;
}

bool PlayerControl::seek(unsigned bar, const rational &offset, unsigned pass)
{
    const auto second = _program ? _program->plan.secondOf(bar, offset, pass) : std::nullopt;
    if (second)
        seekSecond(*second);
    return second.has_value();
}

void PlayerControl::seekSecond(double second)
{
    _askedSecond = second;
    if (!_performances.empty())
        _secondAsked = send(Kind::Seek, second);
}

bool PlayerControl::setLoop(unsigned first, unsigned last)
{
    const auto before = _loop;
    _loop = BarSpan{std::min(first, last), std::max(first, last)};
    if (!loopSeconds()) {
        _loop = before;
        return false;
    }
    sendLoop();
    return true;
}

void PlayerControl::clearLoop()
{
    _loop.reset();
    sendLoop();
}

void PlayerControl::setSpeed(double speed)
{
    const double wanted = std::clamp(std::isfinite(speed) ? speed : 1, 0.25, 2.0);
    if (wanted == _speed)
        return;
    _speed = wanted;
    perform(0);
}

void PlayerControl::setMetronome(bool isOn)
{
    _hasMetronome = isOn;
    send(Kind::Metronome, isOn ? 1 : 0);
}

void PlayerControl::setGain(double decibels)
{
    _gain = std::clamp(decibels, -144.0, 24.0);
    send(Kind::Gain, gainOf(_gain));
}

double PlayerControl::second() const
{
    const auto status = _engine.status();
    if (_performances.empty() || status.obeyed < _secondAsked)
        return _askedSecond;
    if (status.state != PlayerEngine::State::Playing)
        return status.until;
    using namespace std::chrono;
    const auto now = duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count();
    const double passed = static_cast<double>(now - status.time) * 1e-9 - _output->latency();
    return std::max(status.notLess, std::min(status.second + passed * _speed, status.until));
}

std::optional<PlayerControl::PlayPlace> PlayerControl::place() const
{
    // Frames are rounded: what begins half a frame later has begun.
    const double half = 0.5 * _speed / _settings.rate;
    return _program ? _program->plan.placeAt(second() + half) : std::nullopt;
}

Synthesizer::Settings PlayerControl::synthesizerSettings() const
{
    Synthesizer::Settings settings;
    settings.rate = _settings.rate;
    settings.channels = Synthesizer::mostChannels;
    settings.hasReverb = settings.hasChorus = _settings.hasReverb;
    return settings;
}

std::shared_ptr<Instrument> PlayerControl::makeInstrument(const PlanSound &sound) const
{
    return std::make_shared<Instrument>(synthesizerSettings(), banksOf(sound), _program->master);
}

std::vector<std::string> PlayerControl::banksOf(const PlanSound &sound)
{
    std::vector<std::string> banks(Synthesizer::mostChannels);
    for (std::size_t i = 0; i < sound.channels().size(); ++i)
        banks[i] = sound.channels()[i].bank;
    return banks;
}

void PlayerControl::beginFont(std::launch launch)
{
    _lateFont.begin(launch, _settings.font, synthesizerSettings(),
                    _program ? _program->master : MasterSound());
}

/// Waits for the font when it is on its way.
bool PlayerControl::takeFont(std::string *error)
{
    LateFont::Loaded loaded = _lateFont.take();
    if (loaded.instrument == nullptr) {
        if (error != nullptr)
            *error = loaded.error;
        return false;
    }
    _font = loaded.path;
    _instrument = std::move(loaded.instrument);
    perform(0);
    return true;
}

bool PlayerControl::isFinished() const
{
    const auto status = _engine.status();
    return status.state == PlayerEngine::State::Finished && status.obeyed >= _secondAsked
        && status.obeyed >= _stateAsked;
}

std::optional<std::pair<double, double>> PlayerControl::loopSeconds() const
{
    if (!_program || !_loop)
        return std::nullopt;
    const auto &plan = _program->plan;
    const auto stretch = plan.bars().within(_loop->first, _loop->last);
    if (stretch.begin == stretch.end)
        return std::nullopt;
    const auto &last = plan.bars().bars()[stretch.end - 1];
    return std::pair{plan.tempo().secondsAt(plan.bars().bars()[stretch.begin].start),
                     plan.tempo().secondsAt(last.start + last.length)};
}

void PlayerControl::sendLoop()
{
    PlayerCommand command;
    command.kind = Kind::Loop;
    if (const auto loop = loopSeconds()) {
        command.second = loop->first;
        command.end = loop->second;
    }
    send(command);
}

std::uint64_t PlayerControl::send(PlayerCommand::Kind kind, double second)
{
    PlayerCommand command;
    command.kind = kind;
    command.second = second;
    return send(command);
}

std::uint64_t PlayerControl::send(PlayerCommand command)
{
    command.number = ++_sent;
    if (!_waiting.empty() || !_engine.send(command))
        _waiting.push_back(command);
    if (!_isOpen)
        sendWaiting();
    return _sent;
}

void PlayerControl::sendWaiting()
{
    do {
        while (!_waiting.empty() && _engine.send(_waiting.front()))
            _waiting.pop_front();
        if (!_isOpen)
            _engine.render(nullptr, 0);
    } while (!_isOpen && !_waiting.empty());
    const Performance *retired = nullptr;
    while (_engine.takeRetired(retired))
        _performances.erase(std::find_if(
            _performances.begin(), _performances.end(),
            [retired](const auto &performance) { return performance.get() == retired; }));
}

void PlayerControl::keepPlace()
{
    if (_keptPlace)
        return;
    _keptSecond = second();
    _keptPlace = place();
    if (_keptPlace)
        _kept = BarSpan{_keptPlace->bar, _keptPlace->bar};
}

/// Goes on where the music was: in the same bar, at the same time that it is played.
void PlayerControl::program(const zarn::ScoreModel &model)
{
    const auto before = _program;
    auto made = std::make_shared<const Program>(model, _options);
    double shift = 0;
    if (before) {
        keepPlace();
        std::optional<double> second;
        if (_keptPlace && _kept) {
            const auto pass = before->plan.bars().bars()[_keptPlace->playedBar].pass;
            second = made->plan.secondOf(_kept->first, _keptPlace->offset, pass);
            if (!second)
                second = made->plan.secondOf(_kept->first, _keptPlace->offset);
        }
        if (second)
            shift = *second - _keptSecond;
    }
    auto &strips = _mixer.strips();
    strips.resize(made->switches.size());
    for (std::size_t i = 0; i < strips.size(); ++i) {
        if (before && i < before->switches.size() && before->switches[i] == made->switches[i])
            continue;
        strips[i].isMuted = made->switches[i] == zarn::TrackPlayback::Mute;
        strips[i].isSolo = made->switches[i] == zarn::TrackPlayback::Solo;
    }
    _keptPlace.reset();
    _kept.reset();
    _program = std::move(made);
    if (_performances.empty())
        _askedSecond = before ? _askedSecond + shift
                              : _program->plan.tempo().secondsAt(_program->plan.start());
    perform(shift);
}

void PlayerControl::perform(double shift)
{
    if (!_instrument || !_program)
        return;
    const bool isFirst = _performances.empty();
    const double now = second();
    for (;;) {
        const PlanSound sound = _banks.soundOf(_program->plan, bankOfNote);
        if (_instrument->banks != banksOf(sound) || !_instrument->hasReverbOf(_program->master)) {
            auto instrument = makeInstrument(sound);
            // The font could be read before.
            instrument->synthesizer.loadFont(_font, nullptr);
            if (!_banks.load(instrument->synthesizer, sound))
                continue;
            _instrument = std::move(instrument);
        }
        auto performance =
            std::make_unique<Performance>(_program, sound, _instrument, _mixer, _speed);
        addRecordings(*performance);
        take(std::move(performance), isFirst ? now : shift);
        break;
    }
    _askedSecond = isFirst ? now : now + shift;
    sendLoop();
}

void PlayerControl::take(std::unique_ptr<const Performance> performance, double second)
{
    _performances.push_back(std::move(performance));
    PlayerCommand command;
    command.kind = Kind::Take;
    command.performance = _performances.back().get();
    command.second = second;
    _secondAsked = send(command);
}

void PlayerControl::addRecordings(Performance &performance)
{
    performance.recordings = _recordings.of(_program->audioTracks, _settings.rate,
                                            performance.origin + _program->plan.secondsBefore(),
                                            _settings.folder, _speed);
    if (!_options.bars)
        for (const PlacedRecording &recording : performance.recordings)
            performance.end =
                std::max(performance.end, recording.start + recording.sound->frames());
}

/// Plays on, with the recordings that have come.
void PlayerControl::joinRecordings()
{
    const double now = second();
    if (!_performances.empty()) {
        auto performance = std::make_unique<Performance>(*_performances.back());
        addRecordings(*performance);
        take(std::move(performance), 0);
        _askedSecond = now;
    }
}

void PlayerControl::poll()
{
    if (_isOpening)
        openWhenLoaded();
    if (_hasChanged) {
        _hasChanged = false;
        if (const auto model = _followed.lock())
            program(*model);
    }
    if (_recordings.hasCome())
        joinRecordings();
    if (_isPlayWaiting && !_isOpening && !_recordings.isBusy()) {
        _isPlayWaiting = false;
        play();
    }
    sendWaiting();
    if (_isOpen && _output->isLost()) {
        close();
        if (failed)
            failed("the sound device is gone");
        return;
    }
    const bool hasFinished = isFinished();
    const bool isNew = hasFinished && !_wasFinished;
    _wasFinished = hasFinished;
    if (isNew && finished)
        finished();
}

} // namespace Halvec::audio
