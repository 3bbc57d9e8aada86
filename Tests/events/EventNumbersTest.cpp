// SPDX-License-Identifier: MIT
#include <ZarnCore/events/ZarnEvents.h>
#include <ZarnCore/utils/SignalContainer.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace {

using namespace zarn::evt;

// Applications and stored logs know events by these numbers.
const char *const publishedNumbers =
    "BeginMacro 0, EndMacro 1, CommandPushed 2, CommandExecuted 3, CommandWillUndo 4, "
    "CommandWillRedo 5, ConcertToneChanged 6, FullScoreSystemsLayoutChanged 7, "
    "ScoreLockTypeChanged 8, ScoreViewLayoutChanged 9, ScoreViewZoomChanged 10, "
    "ScoreViewZoomPolicyChanged 11, ScoreViewSystemLayoutChanged 12, RequestAddTracks 14, "
    "WillRemoveTrack 15, RemoveTrack 16, SwapTrack 17, TrackNameChanged 18, "
    "TrackShortNameChanged 19, TrackColorChanged 21, TrackIconChanged 22, "
    "GuitarFullTuningChanged 27, TrackClefChanged 28, TrackPlayback 29, "
    "LetRingThroughoutChanged 31, AutoAccentuationChanged 32, PalmMuteChanged 33, "
    "RequestPalmMuteChange 34, AutoBrushChanged 35, PlayingStyleChanged 36, "
    "TrackSystemsLayoutChanged 37, LyricsChanged 38, UseOneChannelOrkaPerStringChanged 39, "
    "TranspositionOffsetChanged 40, CurrentTrackChanged 41, ScoreViewAdded 42, "
    "ScoreViewRemoved 43, ScoreViewSwapped 44, ScoreViewCleared 45, ScoreViewActivated 46, "
    "ScoreViewMultiRest 47, TrackViewNotationsChanged 48, AddBars 52, RemoveBars 54, "
    "ModifyBarRange 55, ModifyBarRangeAllTracks 56, BarAttribute 57, "
    "SimileMarkBarChanged 58, RequestTimerChanged 64, ScoreCursorMoved 67, "
    "RequestDisplayUpdate 68, PropertyChanged 70, PropertiesChanged 71, "
    "HeaderAndFooterChanged 72, MasteringReverbChanged 75, SetBarSection 76, "
    "UnsetBarSection 77, MasterBarAttribute 78, MasterBarTimeSignature 79, "
    "MasterBarKeySignature 80, MasterBarTripletFeel 81, MasterBarFreeTime 82, "
    "MasterBarDoubleBar 83, MasterBarDirection 84, MasterBarRepeat 85, "
    "MasterBarAlternateEnding 86, MasterBarBeamGroups 87, RequestMasterBarPlaylistUpdate 88, "
    "MasterBarFermata 89, GlobalTempoChanged 90, AnacrusisChanged 91, ChordsChanged 92, "
    "CoreAttributeChanged 93, "
    "ScoreChanged 94, AutomationChanged 95, TrackAutomationBypassChanged 96, "
    "MasterTrackAutomationBypassChanged 97, TrackAutomationChanged 98, "
    "MasterTrackAutomationChanged 99, ChannelStripAutomationChanged 100, "
    "MasteringAutomationChanged 102, SoundAutomationChanged 103, RequestPlayBeat 104, "
    "AddAudioTrack 105, RemoveAudioTrack 106, AudioTrackChanged 107, "
    "BarLayoutRatiosChanged 108, RequestForcedSoundIndexChange 112, RequestSoundChange 113, "
    "RequestAddSound 114, RequestInsertSound 115, RequestRemoveSound 116, "
    "RequestSwapSounds 117, TrackSoundEffectsChanged 118, RequestEffectBypassChange 119, "
    "RequestEffectParameterChange 120, "
    "RequestEffectParametersChange 121, RequestEffectChange 122, "
    "RequestEffectChainChange 123, RequestEffectDelete 124, RequestEffectChainClear 125, "
    "RequestEffectsSwap 126, RequestMasterTrackChannelStripChange 127, "
    "RequestMasterTrackChannelStripParameterChange 128, RequestTrackChannelStripChange 129, "
    "RequestTrackStaffChanged 130, EditingSoundIndexChanged 133, MIDIConnectionChanged 140, ";

/// The table that the library goes by holds these events and no others.
TEST(Events, keepTheirPublishedNumbers)
{
    std::string found;
    forEachEvent(eventTable, [&](const auto &row) {
        using E = typename std::decay_t<decltype(row)>::Event;
        EXPECT_EQ(row.number, std::uint32_t(E::TypeNumber)) << row.name;
        EXPECT_LT(row.number, NumberCount);
        found += std::string(row.name) + ' ' + std::to_string(row.number) + ", ";
    });
    EXPECT_EQ(found, publishedNumbers);
}

TEST(Events, tellTypeAndNameThroughTheirBase)
{
    const AddBars bars(4, 2);
    const CommandPushed pushed(QStringLiteral("CreateBars"));
    const CommandExecuted executed;
    struct Unpublished final : Event {
        std::uint32_t type() const noexcept override { return 148; }
    } unpublished;
    const Event *const events[] = {&bars, &pushed, &executed, &unpublished};
    const char *const names[] = {"AddBars", "CommandPushed", "CommandExecuted", ""};
    const std::uint32_t types[] = {52, 2, 3, 148};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(events[i]->type(), types[i]);
        EXPECT_STREQ(events[i]->typeName(), names[i]);
    }
    EXPECT_EQ(bars.index(), 4);
    EXPECT_EQ(bars.count(), 2);
    EXPECT_EQ(pushed.name(), QStringLiteral("CreateBars"));
}

// Every event finds a signal of its own in a table of the published size.
TEST(Events, areDeliveredByTheirNumbers)
{
    utils::SignalContainer<NumberCount> table;
    std::string calls;
    table.signal<RemoveBars>().connect(&calls, [&](const RemoveBars &e) {
        calls += "remove" + std::to_string(e.index()) + "x" + std::to_string(e.count()) + " ";
    });
    table.signal<MIDIConnectionChanged>().connect(
        &calls, [&](const MIDIConnectionChanged &e) { calls += std::to_string(e.trackIndex()); });
    table.notify(this, AddBars(1, 1));
    table.notify(this, RemoveBars(3, 2));
    table.notify(this, MIDIConnectionChanged(9));
    EXPECT_EQ(calls, "remove3x2 9");
}

} // namespace
