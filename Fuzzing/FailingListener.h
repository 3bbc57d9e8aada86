// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEvents.h>
#include <ZarnCore/score/ZarnScore.h>

#include <stdexcept>

namespace fuzz {

/// What the listener below throws.
struct ListenerFailure : std::runtime_error {
    ListenerFailure() : std::runtime_error("a listener fails") { }
};

/// Hears the events that a score sends while it is edited, and throws at one of them when it is
/// told to.
class FailingListener {
public:
    explicit FailingListener(zarn::Score &score) : _score(score)
    {
        using namespace zarn::evt;
        listen<AddBars, RemoveBars, ModifyBarRange, ModifyBarRangeAllTracks, RequestAddTracks,
               WillRemoveTrack, RemoveTrack, TrackNameChanged, MasterBarTimeSignature,
               MasterBarRepeat, MasterBarDirection, AutomationChanged, GuitarFullTuningChanged,
               PropertyChanged, AddAudioTrack, RemoveAudioTrack, RequestAddSound, BeginMacro,
               EndMacro, CommandPushed, CommandWillUndo, CommandWillRedo, CommandExecuted>();
    }
    FailingListener(const FailingListener &) = delete;
    FailingListener &operator=(const FailingListener &) = delete;

    /// Throws at the event with this number, counted from 1; 0 for never.
    void failAt(unsigned number)
    {
        _failsIn = number;
        _hasFailedAfterStep = false;
    }

    /// Whether it threw when the step was done and stored.
    bool hasFailedAfterStep() const noexcept { return _hasFailedAfterStep; }

private:
    template <class... Events>
    void listen()
    {
        (_score.connect<Events>(this,
                                [this](const Events &) {
                                    constexpr bool isAfterStep =
                                        std::is_same_v<Events, zarn::evt::CommandExecuted>;
                                    hear(isAfterStep);
                                }),
         ...);
    }

    void hear(bool isAfterStep)
    {
        if (_failsIn == 0 || --_failsIn > 0)
            return;
        _hasFailedAfterStep = isAfterStep;
        throw ListenerFailure();
    }

    zarn::Score &_score;
    unsigned _failsIn = 0;
    bool _hasFailedAfterStep = false;
};

} // namespace fuzz
