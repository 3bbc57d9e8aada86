// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

namespace zarn::evt {

/// How many numbers there are: the size of a score's signal table.
constexpr std::uint32_t NumberCount = 149;

/// What identifies the events of a class: the number under which they are delivered, and the name
/// that the log shows.
template <class Class>
struct EventRow {
    using Event = Class;
    std::uint32_t number;
    const char *name;
    bool isSent = true; ///< whether anything in the library sends it
};

template <class... Events>
struct EventTable : EventRow<Events>... {
    static constexpr std::size_t size = sizeof...(Events);
};
template <class... Events>
EventTable(EventRow<Events>...) -> EventTable<Events...>;

/// In the table, marks the classes that stand ready for commands to come or for applications.
constexpr bool notSentYet = false;

// Declared here because enumerations of the model have the same names.
class BarAttribute;
class MasterBarAttribute;
class TrackPlayback;

/// Every event that a score can send: the one list from which numbers, names and the classes
/// themselves are taken. The numbers are published, so none is ever given away twice; the gaps are
/// kept for events to come.
inline constexpr EventTable eventTable = {
    EventRow<class BeginMacro>{0, "BeginMacro"},
    EventRow<class EndMacro>{1, "EndMacro"},
    EventRow<class CommandPushed>{2, "CommandPushed"},
    EventRow<class CommandExecuted>{3, "CommandExecuted"},
    EventRow<class CommandWillUndo>{4, "CommandWillUndo"},
    EventRow<class CommandWillRedo>{5, "CommandWillRedo"},
    EventRow<class ConcertToneChanged>{6, "ConcertToneChanged"},
    EventRow<class FullScoreSystemsLayoutChanged>{7, "FullScoreSystemsLayoutChanged"},
    EventRow<class ScoreLockTypeChanged>{8, "ScoreLockTypeChanged", notSentYet},
    EventRow<class ScoreViewLayoutChanged>{9, "ScoreViewLayoutChanged"},
    EventRow<class ScoreViewZoomChanged>{10, "ScoreViewZoomChanged", notSentYet},
    EventRow<class ScoreViewZoomPolicyChanged>{11, "ScoreViewZoomPolicyChanged", notSentYet},
    EventRow<class ScoreViewSystemLayoutChanged>{12, "ScoreViewSystemLayoutChanged"},
    EventRow<class RequestAddTracks>{14, "RequestAddTracks"},
    EventRow<class WillRemoveTrack>{15, "WillRemoveTrack"},
    EventRow<class RemoveTrack>{16, "RemoveTrack"},
    EventRow<class SwapTrack>{17, "SwapTrack"},
    EventRow<class TrackNameChanged>{18, "TrackNameChanged"},
    EventRow<class TrackShortNameChanged>{19, "TrackShortNameChanged"},
    EventRow<class TrackColorChanged>{21, "TrackColorChanged"},
    EventRow<class TrackIconChanged>{22, "TrackIconChanged"},
    EventRow<class GuitarFullTuningChanged>{27, "GuitarFullTuningChanged"},
    EventRow<class TrackClefChanged>{28, "TrackClefChanged"},
    EventRow<class TrackPlayback>{29, "TrackPlayback"},
    EventRow<class LetRingThroughoutChanged>{31, "LetRingThroughoutChanged"},
    EventRow<class AutoAccentuationChanged>{32, "AutoAccentuationChanged"},
    EventRow<class PalmMuteChanged>{33, "PalmMuteChanged"},
    EventRow<class RequestPalmMuteChange>{34, "RequestPalmMuteChange", notSentYet},
    EventRow<class AutoBrushChanged>{35, "AutoBrushChanged"},
    EventRow<class PlayingStyleChanged>{36, "PlayingStyleChanged"},
    EventRow<class TrackSystemsLayoutChanged>{37, "TrackSystemsLayoutChanged"},
    EventRow<class LyricsChanged>{38, "LyricsChanged"},
    EventRow<class UseOneChannelOrkaPerStringChanged>{39, "UseOneChannelOrkaPerStringChanged"},
    EventRow<class TranspositionOffsetChanged>{40, "TranspositionOffsetChanged"},
    EventRow<class CurrentTrackChanged>{41, "CurrentTrackChanged", notSentYet},
    EventRow<class ScoreViewAdded>{42, "ScoreViewAdded", notSentYet},
    EventRow<class ScoreViewRemoved>{43, "ScoreViewRemoved", notSentYet},
    EventRow<class ScoreViewSwapped>{44, "ScoreViewSwapped", notSentYet},
    EventRow<class ScoreViewCleared>{45, "ScoreViewCleared", notSentYet},
    EventRow<class ScoreViewActivated>{46, "ScoreViewActivated", notSentYet},
    EventRow<class ScoreViewMultiRest>{47, "ScoreViewMultiRest"},
    EventRow<class TrackViewNotationsChanged>{48, "TrackViewNotationsChanged"},
    EventRow<class AddBars>{52, "AddBars"},
    EventRow<class RemoveBars>{54, "RemoveBars"},
    EventRow<class ModifyBarRange>{55, "ModifyBarRange"},
    EventRow<class ModifyBarRangeAllTracks>{56, "ModifyBarRangeAllTracks"},
    EventRow<class BarAttribute>{57, "BarAttribute", notSentYet},
    EventRow<class SimileMarkBarChanged>{58, "SimileMarkBarChanged"},
    EventRow<class RequestTimerChanged>{64, "RequestTimerChanged"},
    EventRow<class ScoreCursorMoved>{67, "ScoreCursorMoved"},
    EventRow<class RequestDisplayUpdate>{68, "RequestDisplayUpdate", notSentYet},
    EventRow<class PropertyChanged>{70, "PropertyChanged"},
    EventRow<class PropertiesChanged>{71, "PropertiesChanged"},
    EventRow<class HeaderAndFooterChanged>{72, "HeaderAndFooterChanged"},
    EventRow<class MasteringReverbChanged>{75, "MasteringReverbChanged"},
    EventRow<class SetBarSection>{76, "SetBarSection"},
    EventRow<class UnsetBarSection>{77, "UnsetBarSection"},
    EventRow<class MasterBarAttribute>{78, "MasterBarAttribute"},
    EventRow<class MasterBarTimeSignature>{79, "MasterBarTimeSignature"},
    EventRow<class MasterBarKeySignature>{80, "MasterBarKeySignature"},
    EventRow<class MasterBarTripletFeel>{81, "MasterBarTripletFeel"},
    EventRow<class MasterBarFreeTime>{82, "MasterBarFreeTime"},
    EventRow<class MasterBarDoubleBar>{83, "MasterBarDoubleBar"},
    EventRow<class MasterBarDirection>{84, "MasterBarDirection"},
    EventRow<class MasterBarRepeat>{85, "MasterBarRepeat"},
    EventRow<class MasterBarAlternateEnding>{86, "MasterBarAlternateEnding"},
    EventRow<class MasterBarBeamGroups>{87, "MasterBarBeamGroups"},
    EventRow<class RequestMasterBarPlaylistUpdate>{88, "RequestMasterBarPlaylistUpdate"},
    EventRow<class MasterBarFermata>{89, "MasterBarFermata"},
    EventRow<class GlobalTempoChanged>{90, "GlobalTempoChanged"},
    EventRow<class AnacrusisChanged>{91, "AnacrusisChanged"},
    EventRow<class ChordsChanged>{92, "ChordsChanged"},
    EventRow<class CoreAttributeChanged>{93, "CoreAttributeChanged", notSentYet},
    EventRow<class ScoreChanged>{94, "ScoreChanged"},
    EventRow<class AutomationChanged>{95, "AutomationChanged"},
    EventRow<class TrackAutomationBypassChanged>{96, "TrackAutomationBypassChanged"},
    EventRow<class MasterTrackAutomationBypassChanged>{97, "MasterTrackAutomationBypassChanged"},
    EventRow<class TrackAutomationChanged>{98, "TrackAutomationChanged"},
    EventRow<class MasterTrackAutomationChanged>{99, "MasterTrackAutomationChanged"},
    EventRow<class ChannelStripAutomationChanged>{100, "ChannelStripAutomationChanged"},
    EventRow<class MasteringAutomationChanged>{102, "MasteringAutomationChanged"},
    EventRow<class SoundAutomationChanged>{103, "SoundAutomationChanged"},
    EventRow<class RequestPlayBeat>{104, "RequestPlayBeat", notSentYet},
    EventRow<class AddAudioTrack>{105, "AddAudioTrack"},
    EventRow<class RemoveAudioTrack>{106, "RemoveAudioTrack"},
    EventRow<class AudioTrackChanged>{107, "AudioTrackChanged"},
    EventRow<class BarLayoutRatiosChanged>{108, "BarLayoutRatiosChanged"},
    EventRow<class RequestForcedSoundIndexChange>{112, "RequestForcedSoundIndexChange"},
    EventRow<class RequestSoundChange>{113, "RequestSoundChange"},
    EventRow<class RequestAddSound>{114, "RequestAddSound"},
    EventRow<class RequestInsertSound>{115, "RequestInsertSound"},
    EventRow<class RequestRemoveSound>{116, "RequestRemoveSound"},
    EventRow<class RequestSwapSounds>{117, "RequestSwapSounds"},
    EventRow<class TrackSoundEffectsChanged>{118, "TrackSoundEffectsChanged"},
    EventRow<class RequestEffectBypassChange>{119, "RequestEffectBypassChange"},
    EventRow<class RequestEffectParameterChange>{120, "RequestEffectParameterChange", notSentYet},
    EventRow<class RequestEffectParametersChange>{121, "RequestEffectParametersChange"},
    EventRow<class RequestEffectChange>{122, "RequestEffectChange"},
    EventRow<class RequestEffectChainChange>{123, "RequestEffectChainChange"},
    EventRow<class RequestEffectDelete>{124, "RequestEffectDelete"},
    EventRow<class RequestEffectChainClear>{125, "RequestEffectChainClear"},
    EventRow<class RequestEffectsSwap>{126, "RequestEffectsSwap"},
    EventRow<class RequestMasterTrackChannelStripChange>{127,
                                                         "RequestMasterTrackChannelStripChange"},
    EventRow<class RequestMasterTrackChannelStripParameterChange>{
        128, "RequestMasterTrackChannelStripParameterChange"},
    EventRow<class RequestTrackChannelStripChange>{129, "RequestTrackChannelStripChange"},
    EventRow<class RequestTrackStaffChanged>{130, "RequestTrackStaffChanged"},
    EventRow<class EditingSoundIndexChanged>{133, "EditingSoundIndexChanged", notSentYet},
    EventRow<class MIDIConnectionChanged>{140, "MIDIConnectionChanged"},
};

/// Calls `visit` with the row of every event, in the order of the numbers.
template <class Visit, class... Events>
constexpr void forEachEvent(const EventTable<Events...> &table, Visit visit)
{
    (visit(static_cast<const EventRow<Events> &>(table)), ...);
}

} // namespace zarn::evt
