// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ClickSound.h>
#include <ZarnAudio/Performance.h>
#include <ZarnAudio/ZarnAudioOutput.h>
#include <ZarnAudio/ZarnLimiter.h>
#include <ZarnAudio/ZarnTimedEvent.h>

#include <boost/lockfree/spsc_queue.hpp>

#include <array>
#include <atomic>
#include <cstdint>

namespace Halvec::audio {

/// Something that the thread of the device is to do between two blocks.
struct PlayerCommand {
    enum class Kind : std::uint8_t {
        Take,  ///< `performance` from now on, `second` later in its plan than in the old one, or at
               ///< it
        Play,  ///< after `beats` clicks of the metronome, `second` seconds apart
        Pause, ///< within a few milliseconds
        Seek,  ///< to `second`
        Loop,  ///< from `second` to `end`; none when they are equal
        Metronome, ///< heard when `second` is not 0
        Gain,      ///< of all, linear in `second`
        Change,    ///< a level or place of a channel, by `event`
    };

    Kind kind = Kind::Play;
    double second = 0; ///< of the plan
    double end = 0;
    const Performance *performance = nullptr;
    int beats = 0;
    int beatsPerBar = 0;
    TimedEvent event;
    std::uint64_t number = 0; ///< rises from command to command
};

/// What plays a performance on the thread of a device, told by commands from one other thread.
/// From its construction on, nothing here allocates, frees, locks or waits.
class PlayerEngine final : public AudioOutput::Source {
public:
    enum class State : std::uint8_t { Paused, CountingIn, Playing, Finished };

    explicit PlayerEngine(int rate);

    // On the thread of the device.

    void render(float *frames, std::int64_t count) noexcept override;

    // On the thread that controls.

    /// False when too many wait.
    bool send(const PlayerCommand &command) noexcept { return _commands.push(command); }

    /// A performance that is played no more; false when there is none.
    bool takeRetired(const Performance *&performance) noexcept { return _retired.pop(performance); }

    struct Status {
        State state = State::Paused;
        double second = 0;        ///< of the plan, at the first frame of the last block
        double until = 0;         ///< at its end
        double notLess = 0;       ///< where playing began, or went on after the last jump
        std::int64_t time = 0;    ///< when the block was asked for: the steady clock's nanoseconds
        std::uint64_t obeyed = 0; ///< the last command
        unsigned lateBlocks = 0;  ///< that took longer to make than to play
    };
    Status status() const noexcept;

private:
    void obey(const PlayerCommand &command) noexcept;
    void take(const Performance &performance, double shift) noexcept;
    void seek(std::int64_t frame) noexcept;
    void setLoop() noexcept;
    void play(const PlayerCommand &command) noexcept;
    std::int64_t renderPart(float *frames, std::int64_t count) noexcept;
    std::int64_t renderCountIn(float *frames, std::int64_t count) noexcept;
    std::int64_t renderMusic(float *frames, std::int64_t count) noexcept;
    void mixDown(float *frames, std::int64_t count) noexcept;
    void publish(double second, std::int64_t time) noexcept;
    void countLate(std::int64_t time, std::int64_t frames) noexcept;
    double second() const noexcept;
    std::int64_t frame() const noexcept;

    static constexpr std::size_t mostWaiting = 1024;

    int _rate;
    boost::lockfree::spsc_queue<PlayerCommand, boost::lockfree::capacity<mostWaiting>> _commands;
    boost::lockfree::spsc_queue<const Performance *, boost::lockfree::capacity<mostWaiting>>
        _retired;

    const Performance *_performance = nullptr;
    State _state = State::Paused;
    std::int64_t _rest = 0;   ///< where a pause goes on
    std::int64_t _fading = 0; ///< frames until a pause begins; 0 for none
    double _loopBegin = 0;    ///< seconds of the plan
    double _loopEnd = 0;
    std::int64_t _counted = 0; ///< frames of the count-in that are over
    double _beatFrames = 0;
    int _beats = 0;
    int _beatsPerBar = 1;
    std::int64_t _tail = 0; ///< frames since the end of the last bar
    bool _hasMetronome = false;
    float _gain = 1; ///< of the frames before
    float _wantedGain = 1;
    double _notLess = 0;
    std::uint64_t _obeyed = 0;
    std::array<float, 2 * 256> _leaving{}; ///< the end of an instrument that was replaced
    bool _isLeaving = false;
    ClickSound _click;
    Limiter _limiter;

    // What the other thread reads, as of one moment when the version is even and the same before
    // and after.
    std::atomic<unsigned> _version{0};
    std::atomic<State> _shownState{State::Paused};
    std::atomic<double> _shownSecond{0};
    std::atomic<double> _shownUntil{0};
    std::atomic<double> _shownNotLess{0};
    std::atomic<std::int64_t> _shownTime{0};
    std::atomic<std::uint64_t> _shownObeyed{0};
    std::atomic<unsigned> _lateBlocks{0};
};

} // namespace Halvec::audio
