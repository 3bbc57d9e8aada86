// SPDX-License-Identifier: MIT
#include <ZarnCore/events/ZarnEvents.h>
#include <ZarnCore/utils/SignalContainer.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

using namespace zarn::evt;

struct Published {
    std::string name;
    std::uint32_t number;
    std::uint32_t published;
};

// Applications and stored logs know events by these numbers.
const Published publishedNumbers[] = {
    {"BeginMacro", BeginMacro::TypeNumber, 0},
    {"EndMacro", EndMacro::TypeNumber, 1},
    {"CommandPushed", CommandPushed::TypeNumber, 2},
    {"CommandExecuted", CommandExecuted::TypeNumber, 3},
    {"CommandWillUndo", CommandWillUndo::TypeNumber, 4},
    {"CommandWillRedo", CommandWillRedo::TypeNumber, 5},
    {"ConcertToneChanged", ConcertToneChanged::TypeNumber, 6},
    {"FullScoreSystemsLayoutChanged", FullScoreSystemsLayoutChanged::TypeNumber, 7},
    {"ScoreLockTypeChanged", ScoreLockTypeChanged::TypeNumber, 8},
    {"ScoreViewLayoutChanged", ScoreViewLayoutChanged::TypeNumber, 9},
    {"ScoreViewZoomChanged", ScoreViewZoomChanged::TypeNumber, 10},
    {"ScoreViewZoomPolicyChanged", ScoreViewZoomPolicyChanged::TypeNumber, 11},
    {"ScoreViewSystemLayoutChanged", ScoreViewSystemLayoutChanged::TypeNumber, 12},
    {"RequestAddTracks", RequestAddTracks::TypeNumber, 14},
    {"WillRemoveTrack", WillRemoveTrack::TypeNumber, 15},
    {"RemoveTrack", RemoveTrack::TypeNumber, 16},
    {"SwapTrack", SwapTrack::TypeNumber, 17},
    {"TrackNameChanged", TrackNameChanged::TypeNumber, 18},
    {"TrackShortNameChanged", TrackShortNameChanged::TypeNumber, 19},
    {"TrackColorChanged", TrackColorChanged::TypeNumber, 21},
    {"TrackIconChanged", TrackIconChanged::TypeNumber, 22},
    {"GuitarFullTuningChanged", GuitarFullTuningChanged::TypeNumber, 27},
    {"TrackClefChanged", TrackClefChanged::TypeNumber, 28},
    {"TrackPlayback", TrackPlayback::TypeNumber, 29},
    {"LetRingThroughoutChanged", LetRingThroughoutChanged::TypeNumber, 31},
    {"AutoAccentuationChanged", AutoAccentuationChanged::TypeNumber, 32},
    {"PalmMuteChanged", PalmMuteChanged::TypeNumber, 33},
    {"RequestPalmMuteChange", RequestPalmMuteChange::TypeNumber, 34},
    {"AutoBrushChanged", AutoBrushChanged::TypeNumber, 35},
    {"PlayingStyleChanged", PlayingStyleChanged::TypeNumber, 36},
    {"TrackSystemsLayoutChanged", TrackSystemsLayoutChanged::TypeNumber, 37},
    {"LyricsChanged", LyricsChanged::TypeNumber, 38},
    {"UseOneChannelOrkaPerStringChanged", UseOneChannelOrkaPerStringChanged::TypeNumber, 39},
    {"TranspositionOffsetChanged", TranspositionOffsetChanged::TypeNumber, 40},
    {"CurrentTrackChanged", CurrentTrackChanged::TypeNumber, 41},
    {"ScoreViewAdded", ScoreViewAdded::TypeNumber, 42},
    {"ScoreViewRemoved", ScoreViewRemoved::TypeNumber, 43},
    {"ScoreViewSwapped", ScoreViewSwapped::TypeNumber, 44},
    {"ScoreViewCleared", ScoreViewCleared::TypeNumber, 45},
    {"ScoreViewActivated", ScoreViewActivated::TypeNumber, 46},
    {"ScoreViewMultiRest", ScoreViewMultiRest::TypeNumber, 47},
    {"TrackViewNotationsChanged", TrackViewNotationsChanged::TypeNumber, 48},
    {"AddBars", AddBars::TypeNumber, 52},
    {"RemoveBars", RemoveBars::TypeNumber, 54},
    {"ModifyBarRange", ModifyBarRange::TypeNumber, 55},
    {"ModifyBarRangeAllTracks", ModifyBarRangeAllTracks::TypeNumber, 56},
    {"BarAttribute", BarAttribute::TypeNumber, 57},
    {"SimileMarkBarChanged", SimileMarkBarChanged::TypeNumber, 58},
    {"RequestTimerChanged", RequestTimerChanged::TypeNumber, 64},
    {"ScoreCursorMoved", ScoreCursorMoved::TypeNumber, 67},
    {"RequestDisplayUpdate", RequestDisplayUpdate::TypeNumber, 68},
    {"PropertyChanged", PropertyChanged::TypeNumber, 70},
    {"PropertiesChanged", PropertiesChanged::TypeNumber, 71},
    {"HeaderAndFooterChanged", HeaderAndFooterChanged::TypeNumber, 72},
    {"MasteringReverbChanged", MasteringReverbChanged::TypeNumber, 75},
    {"SetBarSection", SetBarSection::TypeNumber, 76},
    {"UnsetBarSection", UnsetBarSection::TypeNumber, 77},
    {"MasterBarAttribute", MasterBarAttribute::TypeNumber, 78},
    {"MasterBarTimeSignature", MasterBarTimeSignature::TypeNumber, 79},
    {"MasterBarKeySignature", MasterBarKeySignature::TypeNumber, 80},
    {"MasterBarTripletFeel", MasterBarTripletFeel::TypeNumber, 81},
    {"MasterBarFreeTime", MasterBarFreeTime::TypeNumber, 82},
    {"MasterBarDoubleBar", MasterBarDoubleBar::TypeNumber, 83},
    {"MasterBarDirection", MasterBarDirection::TypeNumber, 84},
    {"MasterBarRepeat", MasterBarRepeat::TypeNumber, 85},
    {"MasterBarAlternateEnding", MasterBarAlternateEnding::TypeNumber, 86},
    {"MasterBarBeamGroups", MasterBarBeamGroups::TypeNumber, 87},
    {"RequestMasterBarPlaylistUpdate", RequestMasterBarPlaylistUpdate::TypeNumber, 88},
    {"GlobalTempoChanged", GlobalTempoChanged::TypeNumber, 90},
    {"AnacrusisChanged", AnacrusisChanged::TypeNumber, 91},
    {"ChordsChanged", ChordsChanged::TypeNumber, 92},
    {"CoreAttributeChanged", CoreAttributeChanged::TypeNumber, 93},
    {"ScoreChanged", ScoreChanged::TypeNumber, 94},
    {"AutomationChanged", AutomationChanged::TypeNumber, 95},
    {"TrackAutomationBypassChanged", TrackAutomationBypassChanged::TypeNumber, 96},
    {"MasterTrackAutomationBypassChanged", MasterTrackAutomationBypassChanged::TypeNumber, 97},
    {"TrackAutomationChanged", TrackAutomationChanged::TypeNumber, 98},
    {"MasterTrackAutomationChanged", MasterTrackAutomationChanged::TypeNumber, 99},
    {"ChannelStripAutomationChanged", ChannelStripAutomationChanged::TypeNumber, 100},
    {"MasteringAutomationChanged", MasteringAutomationChanged::TypeNumber, 102},
    {"SoundAutomationChanged", SoundAutomationChanged::TypeNumber, 103},
    {"RequestPlayBeat", RequestPlayBeat::TypeNumber, 104},
    {"AddAudioTrack", AddAudioTrack::TypeNumber, 105},
    {"RemoveAudioTrack", RemoveAudioTrack::TypeNumber, 106},
    {"AudioTrackChanged", AudioTrackChanged::TypeNumber, 107},
    {"BarLayoutRatiosChanged", BarLayoutRatiosChanged::TypeNumber, 108},
    {"RequestForcedSoundIndexChange", RequestForcedSoundIndexChange::TypeNumber, 112},
    {"RequestSoundChange", RequestSoundChange::TypeNumber, 113},
    {"RequestAddSound", RequestAddSound::TypeNumber, 114},
    {"RequestInsertSound", RequestInsertSound::TypeNumber, 115},
    {"RequestRemoveSound", RequestRemoveSound::TypeNumber, 116},
    {"RequestSwapSounds", RequestSwapSounds::TypeNumber, 117},
    {"RequestEffectBypassChange", RequestEffectBypassChange::TypeNumber, 119},
    {"RequestEffectParameterChange", RequestEffectParameterChange::TypeNumber, 120},
    {"RequestEffectParametersChange", RequestEffectParametersChange::TypeNumber, 121},
    {"RequestEffectChange", RequestEffectChange::TypeNumber, 122},
    {"RequestEffectChainChange", RequestEffectChainChange::TypeNumber, 123},
    {"RequestEffectDelete", RequestEffectDelete::TypeNumber, 124},
    {"RequestEffectChainClear", RequestEffectChainClear::TypeNumber, 125},
    {"RequestEffectsSwap", RequestEffectsSwap::TypeNumber, 126},
    {"RequestMasterTrackChannelStripChange", RequestMasterTrackChannelStripChange::TypeNumber, 127},
    {"RequestMasterTrackChannelStripParameterChange",
     RequestMasterTrackChannelStripParameterChange::TypeNumber, 128},
    {"RequestTrackChannelStripChange", RequestTrackChannelStripChange::TypeNumber, 129},
    {"RequestTrackStaffChanged", RequestTrackStaffChanged::TypeNumber, 130},
    {"EditingSoundIndexChanged", EditingSoundIndexChanged::TypeNumber, 133},
    {"MIDIConnectionChanged", MIDIConnectionChanged::TypeNumber, 140}};

TEST(Events, keepTheirPublishedNumbers)
{
    std::set<std::uint32_t> numbers;
    for (const Published &event : publishedNumbers) {
        EXPECT_EQ(event.number, event.published) << event.name;
        EXPECT_LT(event.number, NumberCount);
        EXPECT_TRUE(numbers.insert(event.number).second) << event.name;
    }
    // The table that the library goes by holds these and no others.
    std::size_t row = 0;
    forEachEvent(eventTable, [&](const auto &listed) {
        ASSERT_LT(row, std::size(publishedNumbers));
        EXPECT_EQ(listed.name, publishedNumbers[row].name);
        EXPECT_EQ(listed.number, publishedNumbers[row].published);
        ++row;
    });
    EXPECT_EQ(row, std::size(publishedNumbers));
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

TEST(Events, carryPlacesInTheOrderOfTheTree)
{
    const ModifyBarRange range(1, 2, 3, 4);
    EXPECT_EQ(range.trackIndex(), 1);
    EXPECT_EQ(range.staffIndex(), 2);
    EXPECT_EQ(range.firstBar(), 3);
    EXPECT_EQ(range.lastBar(), 4);
    const MasterBarDirection direction(zarn::DirectionMark::Coda, -1, 7);
    EXPECT_EQ(direction.mark(), zarn::DirectionMark::Coda);
    EXPECT_EQ(direction.oldBar(), -1);
    EXPECT_EQ(direction.newBar(), 7);
    const RequestForcedSoundIndexChange forced(5, 0, 1);
    EXPECT_EQ(forced.trackIndex(), 5);
    EXPECT_EQ(forced.oldIndex(), 0);
    EXPECT_EQ(forced.newIndex(), 1);
    const TrackAutomationBypassChanged bypass(3, zarn::Automation::Type(512), true);
    EXPECT_EQ(bypass.automationType(), zarn::Automation::Type(512));
    EXPECT_TRUE(bypass.isBypassed());
    const ScoreCursorMoved moved(zarn::ScoreModelIndex(),
                                 zarn::ScoreModelIndex(nullptr, 1, 2, 3, 0, 0));
    EXPECT_EQ(moved.oldValue().barIndex(), -1);
    EXPECT_EQ(moved.newValue().barIndex(), 2);
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
