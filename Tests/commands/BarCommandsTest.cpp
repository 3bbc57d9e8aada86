// SPDX-License-Identifier: MIT
#include "support/CommandLaw.h"
#include "support/SmallScore.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/commands/Bar/ZarnCreateBars.h>
#include <ZarnCore/commands/Bar/ZarnRemoveBars.h>
#include <ZarnCore/commands/ZarnMacroCommandRecorder.h>
#include <ZarnCore/events/ZarnBarEvents.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace {

using namespace zarn;

/// Each bar of the guitar has a clef of its own.
struct BarCommandsTest : testing::Test, SmallScore {
    BarCommandsTest()
    {
        for (unsigned i = 0; i < 6; ++i)
            bar(i)->setClef(i % 2 == 0 ? ClefType::F4 : ClefType::C3);
    }
    std::shared_ptr<Bar> bar(unsigned index) { return model.track(0)->bar(index, 0); }
    unsigned barCount() { return model.masterTrack()->masterBarCount(); }
};

TEST_F(BarCommandsTest, insertingAndRemovingAreUndoable)
{
    for (unsigned at : {0u, 3u, 6u}) {
        SCOPED_TRACE(at);
        expectUndoable(score, [&] { return score.createBars(at, 3); });
        expectUndoable(score, [&] { return score.createBar(at); });
    }
    for (unsigned first = 0; first < 6; ++first) {
        for (unsigned last = first; last < 6; ++last)
            expectUndoable(score, [&] { return score.removeBarRange(first, last); });
    }
    EXPECT_TRUE(score.removeBar(2));
    EXPECT_EQ(barCount(), 5u);
}

TEST_F(BarCommandsTest, placesThatAreNotThereAreRefused)
{
    expectRefused(score, [&] { return score.createBars(7, 1); });
    expectRefused(score, [&] { return score.createBars(2, 0); });
    for (const unsigned count : {4294967295u, 1u << 31, MasterTrack::MaxBars - 5})
        expectRefused(score, [&] { return score.createBars(0, count); });
    expectRefused(score, [&] { return score.removeBarRange(3, 2); });
    expectRefused(score, [&] { return score.removeBarRange(5, 6); });
    expectRefused(score, [&] { return score.removeBarRange(0, 4294967295u); });
    expectRefused(score, [&] { return score.removeBar(6); });
    try {
        cmd::CreateBars().init(nullptr, 0, 1);
        FAIL();
    } catch (const CoreException &error) {
        EXPECT_EQ(error.message(), "Assertion failed: score != NULL");
        EXPECT_EQ(error.function(), "zarn::cmd::CreateBars::init");
    }
}

TEST_F(BarCommandsTest, undoneRemovalBringsTheVeryNodesBack)
{
    const auto removed = bar(2);
    const auto master = model.masterTrack()->masterBar(2);
    ASSERT_TRUE(score.removeBarRange(1, 3));
    EXPECT_EQ(removed->parentStaff(), nullptr);
    EXPECT_EQ(bar(1)->clef(), ClefType::F4);
    score.commandStack().undo();
    EXPECT_EQ(bar(2), removed);
    EXPECT_EQ(model.masterTrack()->masterBar(2), master);
    EXPECT_EQ(removed->index(), 2u);
    // The bars of an insertion that is undone and redone are the same nodes too.
    ASSERT_TRUE(score.createBars(4, 2));
    const auto created = bar(5);
    score.commandStack().undo();
    score.commandStack().redo();
    EXPECT_EQ(bar(5), created);
}

/// What a note holds on to is gone with the tie: it is bent by itself, each time that it is cut
/// off.
TEST_F(BarCommandsTest, insertedBarsCutOffBendsThatAreHeldOver)
{
    Note &held = *bar(1)->voice(0)->beat(0)->notes()[0];
    held.setBend(Bend::of(BendType::HoldBend));
    expectUndoable(score, [this] { return score.createBars(1, 1); });
    score.createBars(1, 1);
    score.commandStack().undo();
    EXPECT_EQ(held.bend().type, BendType::HoldBend);
    score.commandStack().redo();
    EXPECT_EQ(held.bend().type, BendType::PreBend);
}

TEST_F(BarCommandsTest, similesDirectionsAndAutomationsComeBack)
{
    bar(1)->setSimileMark(SimileMark::Simple);
    bar(3)->setSimileMark(SimileMark::FirstOfDouble);
    bar(4)->setSimileMark(SimileMark::SecondOfDouble);
    auto &master = *model.masterTrack();
    master.setDirection(static_cast<int>(DirectionMark::Coda), 2);
    master.setDirection(static_cast<int>(DirectionMark::Fine), 5);
    const auto addTempo = [&](unsigned at, float position, float tempo) {
        auto automation = std::make_unique<TempoAutomation>();
        automation->setIndex(at);
        automation->setPosition(position);
        automation->setValue(tempo);
        master.insertAutomation(std::move(automation));
    };
    addTempo(0, 0, 90);
    addTempo(0, 0.5F, 95);
    addTempo(2, 0, 120);
    addTempo(4, 0.25F, 60);
    for (unsigned at = 0; at <= 6; ++at) {
        SCOPED_TRACE(at);
        expectUndoable(score, [&] { return score.createBars(at, 2); });
    }
    for (unsigned first = 0; first < 6; ++first) {
        for (unsigned last = first; last < 6; ++last) {
            SCOPED_TRACE(std::to_string(first) + "-" + std::to_string(last));
            expectUndoable(score, [&] { return score.removeBarRange(first, last); });
        }
    }
}

TEST_F(BarCommandsTest, eventsTellWhatWasDoneAndUndone)
{
    std::string heard;
    score.connect<evt::AddBars>(this, [&](const evt::AddBars &e) {
        heard += "+" + std::to_string(e.index()) + "x" + std::to_string(e.count()) + " of "
            + std::to_string(barCount()) + " ";
        EXPECT_FALSE(score.commandStack().tryLock()) << "structural events come under the lock";
    });
    score.connect<evt::RemoveBars>(this, [&](const evt::RemoveBars &e) {
        heard += "-" + std::to_string(e.index()) + "x" + std::to_string(e.count()) + " of "
            + std::to_string(barCount()) + " ";
    });
    score.connect<evt::ModifyBarRangeAllTracks>(this, [&](const evt::ModifyBarRangeAllTracks &e) {
        heard += "~" + std::to_string(e.firstBar()) + "-" + std::to_string(e.lastBar()) + " ";
    });
    score.createBars(5, 2);
    score.commandStack().undo();
    score.commandStack().redo();
    EXPECT_EQ(std::exchange(heard, {}), "+5x2 of 8 -5x2 of 6 +5x2 of 8 ");
    score.removeBarRange(1, 3);
    score.commandStack().undo();
    EXPECT_EQ(heard, "-1x3 of 5 ~1-3 +1x3 of 8 ~1-3 ");
}

TEST_F(BarCommandsTest, commandsOfAMacroReadTheScoreWhenTheyRun)
{
    expectUndoable(score, [&] {
        MacroCommandRecorder recorder(&score);
        const bool isDone = score.createBars(0, 2) && score.removeBarRange(0, 3)
            && score.createBars(4, 1) && score.removeBar(1);
        recorder.commit();
        return isDone;
    });
    // The second removal was possible when it was recorded and is not when it runs.
    const auto before = model.clone();
    score.commandStack().beginMacroCommand();
    ASSERT_TRUE(score.removeBarRange(0, 4));
    ASSERT_TRUE(score.removeBarRange(0, 4));
    EXPECT_THROW(score.commandStack().endMacroCommand(true), CoreException);
    EXPECT_TRUE(model == *before);
    EXPECT_EQ(brokenRules(score), "");
}

TEST_F(BarCommandsTest, listenerThatThrowsFindsTheChangeTakenBack)
{
    const auto before = model.clone();
    int failures = 2;
    score.connect<evt::AddBars>(this, [&](const evt::AddBars &) {
        if (failures-- > 0)
            throw std::runtime_error("listener");
    });
    EXPECT_THROW(score.createBars(1, 2), std::runtime_error);
    EXPECT_TRUE(model == *before);
    EXPECT_FALSE(score.commandStack().undoAvailable());
    ASSERT_TRUE(score.removeBar(0));
    const auto after = model.clone();
    EXPECT_THROW(score.commandStack().undo(), std::runtime_error);
    EXPECT_TRUE(model == *after);
    score.commandStack().undo();
    EXPECT_TRUE(model == *before);
}

} // namespace
