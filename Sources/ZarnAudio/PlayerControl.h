// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/LateFont.h>
#include <ZarnAudio/LateRecordings.h>
#include <ZarnAudio/Performance.h>
#include <ZarnAudio/PlayerEngine.h>
#include <ZarnAudio/ZarnPlayer.h>
#include <ZarnAudio/ZarnSoundbanks.h>
#include <ZarnCore/utils/SignalBase.h>

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Halvec::audio {

/// Bars, counted from 0, that stay with their music while others come and go.
struct BarSpan {
    unsigned first = 0;
    unsigned last = 0;
    void insert(unsigned at, unsigned count) noexcept;

    /// False when nothing of it is left.
    bool remove(unsigned at, unsigned count) noexcept;
};

/// What a `Player` does: it makes performances and tells the engine about them.
class PlayerControl {
public:
    using Settings = Player::Settings;
    using State = Player::State;
    using PlayPlace = zarn::playback::PlayPlace;
    using PlaybackPlan = zarn::playback::PlaybackPlan;
    using rational = utils::rational;
    PlayerControl(const Settings &settings, std::unique_ptr<AudioOutput> output);
    ~PlayerControl() { close(); }
    bool open(std::string *error);
    void openLater();
    void close() noexcept;
    bool isOpen() const noexcept { return _isOpen; }
    bool isOpening() const noexcept { return _isOpening; }
    void setScore(const zarn::ScoreModel &model, const zarn::playback::PlanOptions &options);
    void follow(zarn::Score &score);

    std::shared_ptr<const PlaybackPlan> plan() const;
    State state() const;
    void play();
    void pause();
    bool seek(unsigned bar, const rational &offset, unsigned pass);
    void seekSecond(double second);
    bool setLoop(unsigned first, unsigned last);
    void clearLoop();
    void setSpeed(double speed);
    double speed() const noexcept { return _speed; }
    void setMetronome(bool isOn);
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
        command.kind = PlayerCommand::Kind::Change;
        for (const TimedEvent &event : _mixer.events(0)) {
            command.event = event;
            send(command);
        }
    }
    const Mixer &mixer() const noexcept { return _mixer; }
    const std::vector<std::string> &problems() const noexcept { return _recordings.problems(); }
    void setGain(double decibels);
    double gain() const noexcept { return _gain; }
    double second() const;
    std::optional<PlayPlace> place() const;
    unsigned lateBlocks() const noexcept { return _engine.status().lateBlocks; }
    void poll();

    std::function<void()> finished;
    std::function<void(const std::string &)> failed;

private:
    void beginFont(std::launch launch);
    bool takeFont(std::string *error);
    void openWhenLoaded();
    std::shared_ptr<Instrument> makeInstrument(const PlanSound &sound) const;
    Synthesizer::Settings synthesizerSettings() const;
    static std::vector<std::string> banksOf(const PlanSound &sound);
    void program(const zarn::ScoreModel &model);
    void perform(double shift);
    void joinRecordings();
    void addRecordings(Performance &performance);
    void take(std::unique_ptr<const Performance> performance, double second);
    void keepPlace();
    bool isFinished() const;
    std::optional<std::pair<double, double>> loopSeconds() const;
    void sendLoop();
    std::uint64_t send(PlayerCommand::Kind kind, double second = 0);

    /// Commands keep their order: what does not fit waits for the next `poll`. Without a device
    /// they are done at once.
    std::uint64_t send(PlayerCommand command);
    void sendWaiting();

    Settings _settings;
    std::unique_ptr<AudioOutput> _output;
    PlayerEngine _engine;
    bool _isOpen = false;
    bool _isOpening = false;
    std::deque<PlayerCommand> _waiting;

    Soundbanks _banks; ///< outlive the instruments
    LateFont _lateFont;
    std::string _font; ///< that was loaded
    LateRecordings _recordings;
    bool _isPlayWaiting = false; ///< for the font or for recordings
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

} // namespace Halvec::audio
