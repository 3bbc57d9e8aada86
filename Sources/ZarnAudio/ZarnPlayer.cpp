// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnPlayer.h>

#include <ZarnAudio/Performance.h>
#include <ZarnAudio/PlayerEngine.h>
#include <ZarnAudio/ZarnSoundFonts.h>
#include <ZarnCore/events/ZarnBarEvents.h>
#include <ZarnCore/events/ZarnCommandEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <deque>
#include <vector>

namespace Halvec::audio {

namespace {

using Kind = PlayerCommand::Kind;
using utils::rational;
using zarn::playback::PlaybackPlan;
using zarn::playback::PlayPlace;

double gainOf(double decibels)
{
    return std::pow(10.0, decibels / 20);
}

/// Bars, counted from 0, that stay with their music while others come and go.
struct BarSpan {
    unsigned first = 0;
    unsigned last = 0;

    void insert(unsigned at, unsigned count) noexcept
    {
        first += at <= first ? count : 0;
        last += at <= last ? count : 0;
    }

    /// False when nothing of it is left.
    bool remove(unsigned at, unsigned count) noexcept
    {
        const auto before = [=](unsigned bar) {
            return std::min(bar, at) + (bar > at + count ? bar - at - count : 0);
        };
        first = before(first);
        const unsigned behind = before(last + 1);
        last = behind == 0 ? 0 : behind - 1;
        return behind > first;
    }
};

} // namespace

class Player::Impl {
public:
    Impl(const Settings &settings, std::unique_ptr<AudioOutput> output)
        : _settings(settings), _output(std::move(output)), _engine(settings.rate)
    {
        send(Kind::Gain, gainOf(_gain));
    }

    ~Impl() { close(); }

    bool open(std::string *error)
    {
        close();
        if (!_instrument) {
            const auto font = findSoundFont(_settings.font, error);
            if (font.empty())
                return false;
            auto instrument = std::make_shared<Instrument>(synthesizerSettings());
            if (!instrument->synthesizer.loadFont(font, error))
                return false;
            _instrument = std::move(instrument);
            if (_program)
                perform(0);
        }
        _isOpen = _output->open(_engine, _settings.rate, error);
        return _isOpen;
    }

    void close() noexcept
    {
        _output->close();
        _isOpen = false;
        // What was asked for is done here now.
        pause();
        std::array<float, 2 * 1024> fading;
        _engine.render(fading.data(), fading.size() / 2);
    }

    bool isOpen() const noexcept { return _isOpen; }

    void setScore(const zarn::ScoreModel &model, const zarn::playback::PlanOptions &options)
    {
        _connections.clear();
        _followed.reset();
        _hasChanged = false;
        _options = options;
        program(model);
    }

    void follow(zarn::Score &score)
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
        _connections.push_back(
            score.connectScoped<RemoveBars>(this, [this](const RemoveBars &event) {
                keepPlace();
                const auto at = static_cast<unsigned>(event.index());
                const auto count = static_cast<unsigned>(event.count());
                for (auto *const span : {&_kept, &_loop})
                    if (*span && !(*span)->remove(at, count))
                        span->reset();
            }));
    }

    std::shared_ptr<const PlaybackPlan> plan() const
    {
        return _program ? std::shared_ptr<const PlaybackPlan>(_program, &_program->plan) : nullptr;
    }

    State state() const
    {
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

    void play()
    {
        if (!_program || !_isOpen)
            return;
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

    void pause()
    {
        _stateAsked = send(Kind::Pause);
        _askedState = State::Stopped;
    }

    bool seek(unsigned bar, const rational &offset, unsigned pass)
    {
        const auto second = _program ? _program->plan.secondOf(bar, offset, pass) : std::nullopt;
        if (second)
            seekSecond(*second);
        return second.has_value();
    }

    void seekSecond(double second)
    {
        _secondAsked = send(Kind::Seek, second);
        _askedSecond = second;
    }

    bool setLoop(unsigned first, unsigned last)
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

    void clearLoop()
    {
        _loop.reset();
        sendLoop();
    }

    void setSpeed(double speed)
    {
        const double wanted = std::clamp(std::isfinite(speed) ? speed : 1, 0.25, 2.0);
        if (wanted == _speed)
            return;
        _speed = wanted;
        perform(0);
    }

    double speed() const noexcept { return _speed; }

    void setMetronome(bool isOn)
    {
        _hasMetronome = isOn;
        send(Kind::Metronome, isOn ? 1 : 0);
    }
    bool hasMetronome() const noexcept { return _hasMetronome; }

    void setCountIn(int bars) { _countIn = std::clamp(bars, 0, 4); }
    int countIn() const noexcept { return _countIn; }

    /// The strip of a track, for a change that is heard at once.
    template <class Change>
    void changeStrip(unsigned track, Change change)
    {
        if (track >= _mixer.strips().size())
            return;
        change(_mixer.strips()[track]);
        PlayerCommand command;
        command.kind = Kind::Change;
        for (const TimedEvent &event : _mixer.events(0)) {
            command.event = event;
            send(command);
        }
    }

    const Mixer &mixer() const noexcept { return _mixer; }

    void setGain(double decibels)
    {
        _gain = std::clamp(decibels, -144.0, 24.0);
        send(Kind::Gain, gainOf(_gain));
    }
    double gain() const noexcept { return _gain; }

    double second() const
    {
        const auto status = _engine.status();
        if (status.obeyed < _secondAsked)
            return _askedSecond;
        if (status.state != PlayerEngine::State::Playing)
            return status.until;
        using namespace std::chrono;
        const auto now = duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count();
        const double passed = static_cast<double>(now - status.time) * 1e-9 - _output->latency();
        return std::max(status.notLess, std::min(status.second + passed * _speed, status.until));
    }

    std::optional<PlayPlace> place() const
    {
        // Frames are rounded: what begins half a frame later has begun.
        const double half = 0.5 * _speed / _settings.rate;
        return _program ? _program->plan.placeAt(second() + half) : std::nullopt;
    }

    void poll();

    std::function<void()> finished;
    std::function<void(const std::string &)> failed;

private:
    Synthesizer::Settings synthesizerSettings() const
    {
        Synthesizer::Settings made;
        made.rate = _settings.rate;
        made.channels = Synthesizer::mostChannels;
        made.hasReverb = made.hasChorus = _settings.hasReverb;
        return made;
    }

    void program(const zarn::ScoreModel &model);
    void perform(double shift);
    void keepPlace();

    bool isFinished() const
    {
        const auto status = _engine.status();
        return status.state == PlayerEngine::State::Finished && status.obeyed >= _secondAsked
            && status.obeyed >= _stateAsked;
    }

    std::optional<std::pair<double, double>> loopSeconds() const
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

    void sendLoop()
    {
        PlayerCommand command;
        command.kind = Kind::Loop;
        if (const auto loop = loopSeconds()) {
            command.second = loop->first;
            command.end = loop->second;
        }
        send(command);
    }

    std::uint64_t send(Kind kind, double second = 0)
    {
        PlayerCommand command;
        command.kind = kind;
        command.second = second;
        return send(command);
    }

    /// Commands keep their order: what does not fit waits for the next `poll`. Without a device
    /// they are done at once.
    std::uint64_t send(PlayerCommand command)
    {
        command.number = ++_sent;
        if (!_waiting.empty() || !_engine.send(command))
            _waiting.push_back(command);
        if (!_isOpen)
            sendWaiting();
        return _sent;
    }

    void sendWaiting()
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

    Settings _settings;
    std::unique_ptr<AudioOutput> _output;
    PlayerEngine _engine;
    bool _isOpen = false;
    std::deque<PlayerCommand> _waiting;

    std::shared_ptr<Instrument> _instrument;
    std::shared_ptr<const Program> _program;
    std::vector<std::unique_ptr<const Performance>> _performances; ///< the engine has some of them
    zarn::playback::PlanOptions _options;
    Mixer _mixer;
    double _speed = 1;
    double _gain = 6;
    bool _hasMetronome = false;
    int _countIn = 0;
    std::optional<BarSpan> _loop;

    // What holds until the engine has come to the command that asked for it.
    std::uint64_t _sent = 0;
    std::uint64_t _stateAsked = 0;
    State _askedState = State::Stopped;
    std::uint64_t _secondAsked = 0;
    double _askedSecond = 0;
    bool _wasFinished = false;

    std::weak_ptr<const zarn::ScoreModel> _followed;
    std::vector<utils::ScopedConnection> _connections;
    bool _hasChanged = false;

    // Where it was when bars began to come and go, and where that is now: nothing when it went.
    std::optional<PlayPlace> _keptPlace;
    double _keptSecond = 0;
    std::optional<BarSpan> _kept;
};

void Player::Impl::keepPlace()
{
    if (_keptPlace)
        return;
    _keptSecond = second();
    _keptPlace = place();
    if (_keptPlace)
        _kept = BarSpan{_keptPlace->bar, _keptPlace->bar};
}

/// Goes on where the music was: in the same bar, at the same time that it is played.
void Player::Impl::program(const zarn::ScoreModel &model)
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
    perform(shift);
    sendLoop();
}

void Player::Impl::perform(double shift)
{
    if (!_instrument || !_program)
        return;
    const double now = second();
    _performances.push_back(
        std::make_unique<const Performance>(_program, _instrument, _mixer, _speed));
    PlayerCommand command;
    command.kind = Kind::Take;
    command.performance = _performances.back().get();
    command.second = shift;
    _secondAsked = send(command);
    _askedSecond = now + shift;
}

void Player::Impl::poll()
{
    if (_hasChanged) {
        _hasChanged = false;
        if (const auto model = _followed.lock())
            program(*model);
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

Player::Player(const Settings &settings)
    : Player(settings, makeDeviceOutput(settings.device, settings.bufferFrames))
{
}

Player::Player(const Settings &settings, std::unique_ptr<AudioOutput> output)
    : _impl(std::make_unique<Impl>(settings, std::move(output)))
{
}

Player::~Player() = default;

bool Player::open(std::string *error)
{
    return _impl->open(error);
}

void Player::close() noexcept
{
    _impl->close();
}

bool Player::isOpen() const noexcept
{
    return _impl->isOpen();
}

void Player::setScore(const zarn::ScoreModel &model, const zarn::playback::PlanOptions &options)
{
    _impl->setScore(model, options);
}

void Player::follow(zarn::Score &score)
{
    _impl->follow(score);
}

std::shared_ptr<const PlaybackPlan> Player::plan() const
{
    return _impl->plan();
}

Player::State Player::state() const
{
    return _impl->state();
}

void Player::play()
{
    _impl->play();
}

void Player::pause()
{
    _impl->pause();
}

bool Player::seek(unsigned bar, const rational &offset, unsigned pass)
{
    return _impl->seek(bar, offset, pass);
}

void Player::seekSecond(double second)
{
    _impl->seekSecond(second);
}

bool Player::setLoop(unsigned first, unsigned last)
{
    return _impl->setLoop(first, last);
}

void Player::clearLoop()
{
    _impl->clearLoop();
}

void Player::setSpeed(double speed)
{
    _impl->setSpeed(speed);
}

double Player::speed() const noexcept
{
    return _impl->speed();
}

void Player::setMetronome(bool isOn)
{
    _impl->setMetronome(isOn);
}

bool Player::hasMetronome() const noexcept
{
    return _impl->hasMetronome();
}

void Player::setCountIn(int bars)
{
    _impl->setCountIn(bars);
}

int Player::countIn() const noexcept
{
    return _impl->countIn();
}

void Player::setMuted(unsigned track, bool isMuted)
{
    _impl->changeStrip(track, [isMuted](Mixer::Strip &strip) { strip.isMuted = isMuted; });
}

void Player::setSolo(unsigned track, bool isSolo)
{
    _impl->changeStrip(track, [isSolo](Mixer::Strip &strip) { strip.isSolo = isSolo; });
}

bool Player::isMuted(unsigned track) const
{
    const auto &strips = _impl->mixer().strips();
    return track < strips.size() && strips[track].isMuted;
}

bool Player::isSolo(unsigned track) const
{
    const auto &strips = _impl->mixer().strips();
    return track < strips.size() && strips[track].isSolo;
}

void Player::setTrackVolume(unsigned track, double decibels)
{
    const double volume = std::clamp(decibels, -144.0, 12.0);
    _impl->changeStrip(track, [volume](Mixer::Strip &strip) { strip.volumePan.decibels = volume; });
}

void Player::setGain(double decibels)
{
    _impl->setGain(decibels);
}

double Player::gain() const noexcept
{
    return _impl->gain();
}

double Player::second() const
{
    return _impl->second();
}

std::optional<PlayPlace> Player::place() const
{
    return _impl->place();
}

void Player::setFinishedCallback(std::function<void()> callback)
{
    _impl->finished = std::move(callback);
}

void Player::setFailedCallback(std::function<void(const std::string &)> callback)
{
    _impl->failed = std::move(callback);
}

void Player::poll()
{
    _impl->poll();
}

} // namespace Halvec::audio
