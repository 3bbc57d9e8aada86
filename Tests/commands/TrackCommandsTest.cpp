// SPDX-License-Identifier: MIT
#include "support/CommandLaw.h"
#include "support/EventLog.h"
#include "support/SmallScore.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/commands/Track/ZarnSetTrackName.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

using namespace zarn;

struct TrackCommandsTest : testing::Test, SmallScore { };

TEST_F(TrackCommandsTest, undoBringsTheVeryTrackBack)
{
    const auto guitar = model.track(0);
    ASSERT_TRUE(score.removeTrack(0));
    EXPECT_EQ(guitar->parentScoreModel(), nullptr);
    EXPECT_EQ(model.track(0)->index(), 0U);
    score.commandStack().undo();
    EXPECT_EQ(model.track(0), guitar);
    EXPECT_EQ(model.track(1)->index(), 1U);

    ASSERT_TRUE(score.createTrack(1, InstrumentSet::cello));
    const auto cello = model.track(1);
    EXPECT_EQ(cello->barCount(), 6U);
    score.commandStack().undo();
    score.commandStack().redo();
    EXPECT_EQ(model.track(1), cello);
}

TEST_F(TrackCommandsTest, anInsertedTrackGetsTheBarsThatItLacks)
{
    const auto track = ScoreModel::createTrack(InstrumentSet::chordophone);
    track->addEmptyBars(2);
    ASSERT_TRUE(score.insertTrack(0, track));
    EXPECT_EQ(track->staff(0)->barCount(), 6U);
    EXPECT_EQ(track->staff(1)->barCount(), 6U);
    EXPECT_FALSE(score.insertTrack(0, track)) << "it has a score now";
}

TEST_F(TrackCommandsTest, retuningKeepsTheFretsOrTheMusic)
{
    const auto &low = *beat(0, 0).notes()[0];
    const GuitarTuning dropD{38, 45, 50, 55, 59, 64};
    ASSERT_TRUE(score.setGuitarFullTuning(0, 0, dropD));
    EXPECT_EQ(low.midi(), 50);
    EXPECT_EQ(low.fret(), 0);
    EXPECT_EQ(beat(0, 1).notes()[0]->midi(), 57) << "the other strings are as they were";
    score.commandStack().undo();
    EXPECT_EQ(low.midi(), 52);

    ASSERT_TRUE(score.setGuitarFullTuning(0, 0, dropD, 0, Retuning::KeepPitches));
    EXPECT_EQ(low.midi(), 52);
    EXPECT_EQ(low.fret(), 2);
    score.commandStack().undo();

    ASSERT_TRUE(score.setGuitarFullTuning(0, 0, model.track(0)->staff(0)->tuning(), 2));
    EXPECT_EQ(low.midi(), 54) << "the capo raises what is fingered";
    score.commandStack().undo();

    // Four strings, a fourth apart as the lower ones of the guitar: what was on the upper two
    // strings goes where it can be played, or stays without a string.
    ASSERT_TRUE(score.setGuitarFullTuning(0, 0, {40, 45, 50, 55}));
    EXPECT_EQ(beat(0, 3).notes()[0]->string(), 3);
    EXPECT_EQ(beat(0, 3).notes()[0]->fret(), 9);
    EXPECT_EQ(beat(0, 3).notes()[0]->midi(), 76);
    score.commandStack().undo();
    ASSERT_TRUE(score.setGuitarFullTuning(0, 0, {16}, 0, Retuning::KeepPitches));
    EXPECT_EQ(low.string(), 0);
    EXPECT_EQ(low.fret(), 24);
    EXPECT_EQ(beat(0, 3).notes()[0]->string(), Note::Unset);
    EXPECT_EQ(beat(0, 3).notes()[0]->midi(), 76);
}

TEST_F(TrackCommandsTest, retuningFingersAnewOnlyWhatItsStringSoundsNoLonger)
{
    const GuitarTuning lowered{40, 45, 50, 55, 59, 62};
    ASSERT_TRUE(score.setGuitarFullTuning(0, 0, lowered, 0, Retuning::KeepPitches));
    const Note &high = *beat(0, 3).notes()[0];
    EXPECT_EQ(high.midi(), 76);
    ASSERT_GE(high.string(), 0);
    EXPECT_EQ(lowered.midiNumbers()[static_cast<std::size_t>(high.string())] + high.fret(), 64);
    EXPECT_EQ(beat(1, 0).notes()[0]->string(), high.string()) << "it is held";
    EXPECT_EQ(beat(0, 0).notes()[0]->fret(), 0);
    EXPECT_EQ(beat(0, 1).notes()[1]->string(), 2);
    EXPECT_EQ(beat(0, 1).notes()[1]->fret(), 0);
    score.commandStack().undo();
    EXPECT_EQ(high.string(), 5);
    EXPECT_EQ(high.fret(), 0);
}

/// An edition may give pitches an octave away from string and fret: they keep that distance.
TEST_F(TrackCommandsTest, retuningMovesAPitchThatLiesAnOctaveFromItsFret)
{
    Note &low = *beat(0, 0).notes()[0];
    low.setMidi(40);
    ASSERT_TRUE(score.setGuitarFullTuning(0, 0, {38, 45, 50, 55, 59, 64}));
    EXPECT_EQ(low.midi(), 38);
}

TEST_F(TrackCommandsTest, automationsAreReplacedRemovedAndLeftOutWhereTheyChangeNothing)
{
    const auto tempo = [](unsigned bar, float value) {
        TempoAutomation automation;
        automation.setIndex(bar);
        automation.setValue(value);
        return automation;
    };
    const MasterTrack &master = *model.masterTrack();
    const auto slow = tempo(1, 60);
    const auto same = tempo(3, 60);
    ASSERT_TRUE(score.modifyMasterTrackAutomations({}, {&slow}));
    const Automation *const first = master.automation(Automation::Tempo, 1, 0);
    ASSERT_TRUE(score.modifyMasterTrackAutomations({}, {&same}));
    EXPECT_EQ(master.automationCount(), 1U) << "it would change nothing";
    score.commandStack().undo();
    EXPECT_EQ(master.automation(Automation::Tempo, 1, 0), first);

    auto fast = tempo(1, 180);
    fast.setText("Presto 100%1");
    fast.setLinear(true);
    ASSERT_TRUE(score.modifyMasterTrackAutomations({first}, {&fast, &same}));
    EXPECT_EQ(master.automationCount(), 2U);
    EXPECT_EQ(score.commandStack().undoArgList().front(),
              QStringLiteral("{Automation0:Type:Tempo;Linear:false;Index:1;Position:0;Value:60 2:"
                             "Text:;Visible:true}"
                             "{Automation1:Type:Tempo;Linear:true;Index:1;Position:0;Value:180 2:"
                             "Text:Presto 100%1;Visible:true}"
                             "{Automation2:Type:Tempo;Linear:false;Index:3;Position:0;Value:60 2:"
                             "Text:;Visible:true}"));
    score.commandStack().undo();
    EXPECT_EQ(master.automation(Automation::Tempo, 1, 0), first) << "the very automation is back";
}

/// Inserted bars, once undone, know the automations that stood where they go back.
TEST_F(TrackCommandsTest, redoneAutomationsAreTheVerySame)
{
    TempoAutomation tempo;
    tempo.setValue(72);
    ASSERT_TRUE(score.modifyMasterTrackAutomations({}, {&tempo}));
    const Automation *const first = model.masterTrack()->automation(Automation::Tempo, 0, 0);
    ASSERT_TRUE(score.createBars(0, 2));
    for (int i = 0; i < 2; ++i)
        score.commandStack().undo();
    for (int i = 0; i < 2; ++i)
        score.commandStack().redo();
    EXPECT_EQ(model.masterTrack()->automation(Automation::Tempo, 0, 0), first);
}

TEST_F(TrackCommandsTest, aDirectionMovesAndSaysFromWhere)
{
    std::string moves;
    score.connect<evt::MasterBarDirection>(this, [&](const evt::MasterBarDirection &event) {
        moves += std::to_string(static_cast<int>(event.mark())) + ":"
            + std::to_string(event.oldBar()) + ">" + std::to_string(event.newBar()) + " ";
    });
    ASSERT_TRUE(score.setBarDirection(DirectionMark::Coda, 1));
    ASSERT_TRUE(score.setBarDirection(DirectionMark::Coda, 3));
    score.commandStack().undo();
    ASSERT_TRUE(score.setBarDirections(1, {DirectionMark::Segno}));
    ASSERT_TRUE(score.setBarDirection(DirectionMark::Segno, -1));
    EXPECT_EQ(moves, "0:-1>1 0:1>3 0:3>1 0:1>-1 2:-1>1 2:1>-1 ");
}

TEST_F(TrackCommandsTest, theOrderOfPlayingIsUpToDateAfterEachStep)
{
    ASSERT_TRUE(score.setBarRepeatEnd(1, 3));
    const std::vector<int> thrice{0, 1, 0, 1, 0, 1, 2, 3, 4, 5};
    EXPECT_EQ(model.masterTrack()->playlist(), thrice);
    score.commandStack().undo();
    EXPECT_EQ(model.masterTrack()->playlist().size(), 6U);
    score.commandStack().redo();
    EXPECT_EQ(model.masterTrack()->playlist(), thrice);
}

TEST_F(TrackCommandsTest, aMissingScoreIsNamedWithTheFunction)
{
    try {
        cmd::SetTrackName().init(nullptr, 0, QStringLiteral("x"));
        FAIL();
    } catch (const CoreException &error) {
        EXPECT_EQ(error.message(), "Assertion failed: score != NULL");
        EXPECT_EQ(error.function(), "zarn::cmd::SetTrackName::init");
    }
}

std::string groupsOf(const ScoreModel &model)
{
    std::string text;
    for (const TrackGroup &group : model.trackGroups())
        text += group.name + std::to_string(group.first) + "-" + std::to_string(group.last) + " ";
    return text;
}

/// Groups hold their tracks, whatever comes, goes and moves.
TEST_F(TrackCommandsTest, groupsFollowTheirTracks)
{
    for (unsigned i = 2; i < 6; ++i)
        model.createAndInsertTrack(i, InstrumentSet::violin);
    model.setTrackGroups({{1, 4, "all", GroupSymbol::Bracket, true},
                          {2, 3, "pair", GroupSymbol::Brace, false},
                          {4, 4, "solo", GroupSymbol::None, false}});
    const std::string before = groupsOf(model);
    struct Case {
        std::function<bool()> act;
        const char *groups;
    };
    const Case cases[] = {
        {[this] { return score.createTrack(1, InstrumentSet::flute); }, "all2-5 pair3-4 solo5-5 "},
        {[this] { return score.createTrack(3, InstrumentSet::flute); }, "all1-5 pair2-4 solo5-5 "},
        {[this] { return score.createTrack(5, InstrumentSet::flute); }, "all1-4 pair2-3 solo4-4 "},
        {[this] { return score.createTrack(6, InstrumentSet::flute); }, "all1-4 pair2-3 solo4-4 "},
        {[this] { return score.removeTrack(0); }, "all0-3 pair1-2 solo3-3 "},
        {[this] { return score.removeTrack(4); }, "all1-3 pair2-3 "},
        {[this] { return score.removeTrack(2); }, "all1-3 pair2-2 solo3-3 "},
        {[this] { return score.moveTrack(2, 3); }, "all1-4 pair2-3 solo4-4 "},
        {[this] { return score.moveTrack(1, 4); }, "all1-4 pair1-2 solo3-3 "},
        {[this] { return score.moveTrack(4, 0); }, "all2-4 pair3-4 solo0-0 "},
        {[this] { return score.moveTrack(0, 2); }, "all0-4 pair1-3 solo4-4 "},
        {[this] { return score.moveTrack(5, 3); }, "all1-5 pair2-4 solo5-5 "},
        {[this] { return score.moveTrack(0, 5); }, "all0-3 pair1-2 solo3-3 "},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.groups);
        ASSERT_TRUE(c.act());
        EXPECT_EQ(groupsOf(model), c.groups);
        score.commandStack().undo();
        EXPECT_EQ(groupsOf(model), before);
        score.commandStack().redo();
        EXPECT_EQ(groupsOf(model), c.groups);
        score.commandStack().undo();
    }
}

/// A listener that throws between the events of a move leaves the others where the track is.
TEST_F(TrackCommandsTest, aMovePastSeveralTracksIsKnownEverywhere)
{
    for (unsigned i = 2; i < 5; ++i)
        model.createAndInsertTrack(i, InstrumentSet::violin);
    const auto move = [this] { return score.moveTrack(0, 3); };
    expectUndoable(score, move,
                   Announcement{"SwapTrack(0,1) SwapTrack(1,2) SwapTrack(2,3) ",
                                "SwapTrack(3,2) SwapTrack(2,1) SwapTrack(1,0) "});
    expectTakenBackWhenAListenerThrows(score, move);
}

} // namespace
