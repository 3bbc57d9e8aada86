// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/EventNames.h>
#include <ZarnCore/events/ZarnEvents.h>

namespace zarn::tool {

/// A list of types, to do something for each of them.
template <class... Types>
struct TypeList {
    static constexpr std::size_t size = sizeof...(Types);
};

// clang-format off
/// Every class of event that a score can send, by number.
using AllEvents = TypeList<
    evt::BeginMacro, evt::EndMacro, evt::CommandPushed, evt::CommandExecuted,
    evt::CommandWillUndo, evt::CommandWillRedo, evt::ConcertToneChanged,
    evt::FullScoreSystemsLayoutChanged, evt::ScoreLockTypeChanged, evt::ScoreViewLayoutChanged,
    evt::ScoreViewZoomChanged, evt::ScoreViewZoomPolicyChanged, evt::ScoreViewSystemLayoutChanged,
    evt::RequestAddTracks, evt::WillRemoveTrack, evt::RemoveTrack, evt::SwapTrack,
    evt::TrackNameChanged, evt::TrackShortNameChanged, evt::TrackColorChanged,
    evt::TrackIconChanged, evt::GuitarFullTuningChanged, evt::TrackClefChanged,
    evt::TrackPlayback, evt::LetRingThroughoutChanged, evt::AutoAccentuationChanged,
    evt::PalmMuteChanged, evt::RequestPalmMuteChange, evt::AutoBrushChanged,
    evt::PlayingStyleChanged, evt::TrackSystemsLayoutChanged, evt::LyricsChanged,
    evt::UseOneChannelOrkaPerStringChanged, evt::TranspositionOffsetChanged,
    evt::CurrentTrackChanged, evt::ScoreViewAdded, evt::ScoreViewRemoved, evt::ScoreViewSwapped,
    evt::ScoreViewCleared, evt::ScoreViewActivated, evt::ScoreViewMultiRest,
    evt::TrackViewNotationsChanged, evt::AddBars, evt::RemoveBars, evt::ModifyBarRange,
    evt::ModifyBarRangeAllTracks, evt::BarAttribute, evt::SimileMarkBarChanged,
    evt::RequestTimerChanged, evt::ScoreCursorMoved, evt::RequestDisplayUpdate,
    evt::PropertyChanged, evt::PropertiesChanged, evt::HeaderAndFooterChanged,
    evt::MasteringReverbChanged, evt::SetBarSection, evt::UnsetBarSection,
    evt::MasterBarAttribute, evt::MasterBarTimeSignature, evt::MasterBarKeySignature,
    evt::MasterBarTripletFeel, evt::MasterBarFreeTime, evt::MasterBarDoubleBar,
    evt::MasterBarDirection, evt::MasterBarRepeat, evt::MasterBarAlternateEnding,
    evt::MasterBarBeamGroups, evt::RequestMasterBarPlaylistUpdate, evt::GlobalTempoChanged,
    evt::AnacrusisChanged, evt::ChordsChanged, evt::CoreAttributeChanged, evt::ScoreChanged,
    evt::AutomationChanged, evt::TrackAutomationBypassChanged,
    evt::MasterTrackAutomationBypassChanged, evt::TrackAutomationChanged,
    evt::MasterTrackAutomationChanged, evt::ChannelStripAutomationChanged,
    evt::MasteringAutomationChanged, evt::SoundAutomationChanged, evt::RequestPlayBeat,
    evt::AddAudioTrack, evt::RemoveAudioTrack, evt::AudioTrackChanged,
    evt::BarLayoutRatiosChanged, evt::RequestForcedSoundIndexChange, evt::RequestSoundChange,
    evt::RequestAddSound, evt::RequestInsertSound, evt::RequestRemoveSound,
    evt::RequestSwapSounds, evt::RequestEffectBypassChange, evt::RequestEffectParameterChange,
    evt::RequestEffectParametersChange, evt::RequestEffectChange, evt::RequestEffectChainChange,
    evt::RequestEffectDelete, evt::RequestEffectChainClear, evt::RequestEffectsSwap,
    evt::RequestMasterTrackChannelStripChange, evt::RequestMasterTrackChannelStripParameterChange,
    evt::RequestTrackChannelStripChange, evt::RequestTrackStaffChanged,
    evt::EditingSoundIndexChanged, evt::MIDIConnectionChanged>;
// clang-format on

static_assert(AllEvents::size == evt::numberNames.size(), "an event class is missing");

} // namespace zarn::tool
