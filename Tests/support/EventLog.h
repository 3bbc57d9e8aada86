// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEvents.h>
#include <ZarnCore/score/ZarnScore.h>

#include <stdexcept>
#include <string>
#include <utility>

/// Writes down the names of the structural events of a score as they come, and throws at one of
/// them when told to. The events of the command stack itself are left out.
class EventLog {
public:
    explicit EventLog(zarn::Score &score) : _score(score)
    {
        using namespace zarn::evt;
        listen<ConcertToneChanged, RequestAddTracks, WillRemoveTrack, RemoveTrack, TrackNameChanged,
               TrackShortNameChanged, TrackIconChanged, GuitarFullTuningChanged, TrackClefChanged,
               AddBars, RemoveBars, ModifyBarRange, ModifyBarRangeAllTracks, PropertyChanged,
               PropertiesChanged, HeaderAndFooterChanged, MasteringReverbChanged, SetBarSection,
               UnsetBarSection, MasterBarTimeSignature, MasterBarKeySignature, MasterBarTripletFeel,
               MasterBarFreeTime, MasterBarDoubleBar, MasterBarDirection, MasterBarRepeat,
               MasterBarAlternateEnding, RequestMasterBarPlaylistUpdate, GlobalTempoChanged,
               AutomationChanged, TrackAutomationBypassChanged, MasterTrackAutomationBypassChanged,
               TrackAutomationChanged, MasterTrackAutomationChanged, SoundAutomationChanged,
               AddAudioTrack, RemoveAudioTrack, RequestAddSound, RequestInsertSound,
               RequestRemoveSound, RequestEffectDelete, RequestEffectChange>();
    }
    EventLog(const EventLog &) = delete;
    EventLog &operator=(const EventLog &) = delete;

    /// The names since the last call, with a space behind each.
    std::string take() { return std::exchange(_names, std::string()); }

    /// Throws once, when the event of this number (counted from 1) comes; 0 for never.
    void throwAt(int number) { _throwIn = number; }

private:
    template <class... Events>
    void listen()
    {
        (_score.connect<Events>(this, [this](const Events &event) { note(event); }), ...);
    }

    void note(const zarn::evt::Event &event)
    {
        _names += event.typeName();
        _names += ' ';
        if (_throwIn > 0 && --_throwIn == 0)
            throw std::runtime_error("a listener fails");
    }

    zarn::Score &_score;
    std::string _names;
    int _throwIn = 0;
};
