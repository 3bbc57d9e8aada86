// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/ScoreMarks.h>

#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>
#include <numeric>
#include <type_traits>

namespace zarn::engraving {

namespace {

constexpr std::uint64_t allTracks = ~std::uint64_t{0};

template <class Event, class... Listed>
constexpr bool isOneOf = (std::is_same_v<Event, Listed> || ...);

/// What is heard or said and never seen on a sheet.
template <class Event>
constexpr bool isUnseen =
    isOneOf<Event, evt::BeginMacro, evt::EndMacro, evt::CommandPushed, evt::CommandExecuted,
            evt::CommandWillUndo, evt::CommandWillRedo, evt::ConcertToneChanged,
            evt::ScoreLockTypeChanged, evt::ScoreViewZoomChanged, evt::ScoreViewZoomPolicyChanged,
            evt::WillRemoveTrack, evt::TrackColorChanged, evt::TrackIconChanged, evt::TrackPlayback,
            evt::CurrentTrackChanged, evt::ScoreCursorMoved, evt::RequestDisplayUpdate,
            evt::MasteringReverbChanged, evt::RequestMasterBarPlaylistUpdate,
            evt::CoreAttributeChanged, evt::TrackAutomationBypassChanged,
            evt::MasterTrackAutomationBypassChanged, evt::TrackAutomationChanged,
            evt::ChannelStripAutomationChanged, evt::MasteringAutomationChanged,
            evt::SoundAutomationChanged, evt::RequestPlayBeat, evt::AddAudioTrack,
            evt::RemoveAudioTrack, evt::AudioTrackChanged, evt::RequestForcedSoundIndexChange,
            evt::RequestSoundChange, evt::RequestAddSound, evt::RequestInsertSound,
            evt::RequestRemoveSound, evt::RequestSwapSounds, evt::TrackSoundEffectsChanged,
            evt::RequestEffectBypassChange, evt::RequestEffectParameterChange,
            evt::RequestEffectParametersChange, evt::RequestEffectChange,
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
constexpr bool isOfColumns = isOneOf<Event, evt::GlobalTempoChanged, evt::AnacrusisChanged,
                                     evt::MasterBarDirection, evt::MasterTrackAutomationChanged>;

} // namespace

ScoreMarks::ScoreMarks(Score &score)
{
    evt::forEachEvent(evt::eventTable, [&](const auto &row) {
        using Event = typename std::decay_t<decltype(row)>::Event;
        if constexpr (!isUnseen<Event>)
            listen<Event>(score);
    });
}

template <class Event>
void ScoreMarks::listen(Score &score)
{
    _connections.push_back(
        score.connectScoped<Event>(this, [this](const Event &event) { hear(event); }));
}

template <class Event>
void ScoreMarks::hear(const Event &event)
{
    if constexpr (isOfTexts<Event>) {
        _texts = true;
    } else if constexpr (isOfColumns<Event>) {
        _columns = true;
    } else if constexpr (std::is_same_v<Event, evt::AddBars>) {
        addBars(event.index(), event.count());
    } else if constexpr (std::is_same_v<Event, evt::RemoveBars>) {
        removeBars(event.index(), event.count());
    } else if constexpr (std::is_base_of_v<evt::StaffBarsEvent<Event>, Event>) {
        markBars(std::uint64_t{1} << (event.trackIndex() % 64), event.firstBar(), event.lastBar());
    } else if constexpr (std::is_base_of_v<evt::BarsEvent<Event>, Event>) {
        _columns = true;
        markBars(allTracks, event.firstBar(), event.lastBar());
    } else if constexpr (!isOfHeads<Event>) {
        // Tracks, tunings, transpositions, another score: rare, and they reach everything.
        _everything = true;
    }
    mark();
}

void ScoreMarks::mark()
{
    const bool isFirst = !_any;
    _any = true;
    if (isFirst && _handler)
        _handler();
}

void ScoreMarks::markEverything()
{
    _everything = true;
    mark();
}

void ScoreMarks::markBars(std::uint64_t tracks, int first, int last)
{
    // The key, clef and octave of a bar reach into the next one.
    const int end = std::min(last + 2, static_cast<int>(_bars.size()));
    for (int bar = std::max(first, 0); bar < end; ++bar)
        _bars[static_cast<std::size_t>(bar)] |= tracks;
}

void ScoreMarks::addBars(int index, int count)
{
    _columns = true;
    const auto at = std::clamp<std::ptrdiff_t>(index, 0, static_cast<int>(_bars.size()));
    const auto many = static_cast<std::size_t>(std::max(count, 0));
    _bars.insert(_bars.begin() + at, many, allTracks);
    _origins.insert(_origins.begin() + at, many, isNew);
    markBars(allTracks, index + count, index + count - 1);
}

void ScoreMarks::removeBars(int index, int count)
{
    _columns = true;
    const auto size = static_cast<std::ptrdiff_t>(_bars.size());
    const auto at = std::clamp<std::ptrdiff_t>(index, 0, size);
    const auto end = std::clamp<std::ptrdiff_t>(std::ptrdiff_t{index} + count, at, size);
    _bars.erase(_bars.begin() + at, _bars.begin() + end);
    _origins.erase(_origins.begin() + at, _origins.begin() + end);
    markBars(allTracks, index, index - 1);
}

void ScoreMarks::clear(unsigned barCount)
{
    _any = _everything = _texts = _columns = false;
    _bars.assign(barCount, 0);
    _origins.resize(barCount);
    std::iota(_origins.begin(), _origins.end(), 0U);
}

} // namespace zarn::engraving
