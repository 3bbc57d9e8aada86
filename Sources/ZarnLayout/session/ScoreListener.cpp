// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/ScoreListener.h>

#include <ZarnLayout/session/ScoreMarks.h>

#include <ZarnCore/events/ZarnEvents.h>
#include <ZarnCore/score/ZarnScore.h>

#include <type_traits>

namespace zarn::engraving {

namespace {

template <class Event, class... Listed>
constexpr bool isOneOf = (std::is_same_v<Event, Listed> || ...);

/// What is heard or said and never seen on a sheet.
template <class Event>
constexpr bool isUnseen = isOneOf<
    Event, evt::BeginMacro, evt::EndMacro, evt::CommandPushed, evt::CommandExecuted,
    evt::CommandWillUndo, evt::CommandWillRedo, evt::ConcertToneChanged, evt::ScoreLockTypeChanged,
    evt::ScoreViewZoomChanged, evt::ScoreViewZoomPolicyChanged, evt::WillRemoveTrack,
    evt::TrackColorChanged, evt::TrackIconChanged, evt::TrackPlayback, evt::CurrentTrackChanged,
    evt::ScoreCursorMoved, evt::RequestDisplayUpdate, evt::MasteringReverbChanged,
    evt::CoreAttributeChanged, evt::TrackAutomationBypassChanged, evt::TrackAutomationChanged,
    evt::ChannelStripAutomationChanged, evt::MasteringAutomationChanged,
    evt::SoundAutomationChanged, evt::RequestPlayBeat, evt::AddAudioTrack, evt::RemoveAudioTrack,
    evt::AudioTrackChanged, evt::RequestForcedSoundIndexChange, evt::RequestSoundChange,
    evt::RequestAddSound, evt::RequestInsertSound, evt::RequestRemoveSound, evt::RequestSwapSounds,
    evt::TrackSoundEffectsChanged, evt::RequestEffectBypassChange,
    evt::RequestEffectParameterChange, evt::RequestEffectParametersChange, evt::RequestEffectChange,
    evt::RequestEffectChainChange, evt::RequestEffectDelete, evt::RequestEffectChainClear,
    evt::RequestEffectsSwap, evt::RequestMasterTrackChannelStripChange,
    evt::RequestMasterTrackChannelStripParameterChange, evt::RequestTrackChannelStripChange,
    evt::EditingSoundIndexChanged, evt::MIDIConnectionChanged>;

/// What is read at each update, marked or not.
template <class Event>
constexpr bool isOfHeads =
    isOneOf<Event, evt::FullScoreSystemsLayoutChanged, evt::TrackSystemsLayoutChanged,
            evt::TrackNameChanged, evt::TrackShortNameChanged, evt::ScoreViewLayoutChanged,
            evt::ScoreViewMultiRest>;

template <class Event>
constexpr bool isOfTexts =
    isOneOf<Event, evt::PropertyChanged, evt::PropertiesChanged, evt::HeaderAndFooterChanged>;

template <class Event>
constexpr bool isOfColumns =
    isOneOf<Event, evt::GlobalTempoChanged, evt::AnacrusisChanged, evt::MasterBarDirection,
            evt::MasterTrackAutomationChanged, evt::MasterTrackAutomationBypassChanged,
            evt::RequestMasterBarPlaylistUpdate>;

} // namespace

ScoreListener::ScoreListener(Score &score, ScoreMarks &marks) : _marks(marks)
{
    evt::forEachEvent(evt::eventTable, [&](const auto &row) {
        using Event = typename std::decay_t<decltype(row)>::Event;
        if constexpr (!isUnseen<Event>)
            listen<Event>(score);
    });
}

template <class Event>
void ScoreListener::listen(Score &score)
{
    _connections.push_back(
        score.connectScoped<Event>(this, [this](const Event &event) { hear(event); }));
}

template <class Event>
void ScoreListener::hear(const Event &event)
{
    if constexpr (isOfTexts<Event>)
        _marks.markTexts();
    else if constexpr (isOfColumns<Event>)
        _marks.markColumns();
    else if constexpr (isOfHeads<Event>)
        _marks.markHeads();
    else if constexpr (std::is_same_v<Event, evt::AddBars>)
        _marks.addBars(event.index(), event.count());
    else if constexpr (std::is_same_v<Event, evt::RemoveBars>)
        _marks.removeBars(event.index(), event.count());
    else if constexpr (std::is_base_of_v<evt::StaffBarsEvent<Event>, Event>)
        _marks.markBars(ScoreMarks::bitOf(static_cast<unsigned>(event.trackIndex())),
                        event.firstBar(), event.lastBar());
    else if constexpr (std::is_base_of_v<evt::BarsEvent<Event>, Event>) {
        _marks.markColumns();
        _marks.markBars(ScoreMarks::allTracks, event.firstBar(), event.lastBar());
    } else {
        // Tracks, tunings, transpositions, another score: rare, and they reach everything.
        _marks.markEverything();
    }
}

} // namespace zarn::engraving
