// SPDX-License-Identifier: MIT
#include "support/CommandLaw.h"
#include "support/SmallScore.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace zarn;

/// Bars in the full score stand in systems of 2, 1 and 3.
struct LayoutCommandsTest : testing::Test, SmallScore {
    LayoutCommandsTest()
    {
        model.setFullScoreSystemsLayout({2, 1, 3});
        model.track(1)->setSystemsLayout({4});
    }
    const std::vector<int> &systems() { return model.fullScoreSystemsLayout(); }
};

TEST_F(LayoutCommandsTest, newBarsJoinTheSystemOfTheBarInFrontOfThem)
{
    const struct {
        unsigned at;
        std::vector<int> score;
        std::vector<int> track;
    } rows[] = {
        {0, {5, 1, 3}, {7}}, {2, {5, 1, 3}, {7}}, {3, {2, 4, 3}, {7}},
        {5, {2, 1, 6}, {4}}, {6, {2, 1, 3}, {4}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.at);
        ASSERT_TRUE(score.createBars(row.at, 3));
        EXPECT_EQ(systems(), row.score);
        EXPECT_EQ(model.track(1)->systemsLayout(), row.track);
        score.commandStack().undo();
        expectUndoable(score, [&] { return score.createBars(row.at, 3); });
    }
}

TEST_F(LayoutCommandsTest, systemsWithoutBarsGo)
{
    const struct {
        unsigned first;
        unsigned last;
        std::vector<int> left;
    } rows[] = {
        {0, 0, {1, 1, 3}}, {2, 2, {2, 3}}, {1, 3, {1, 2}}, {0, 5, {}}, {4, 5, {2, 1, 1}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.first);
        ASSERT_TRUE(score.removeBarRange(row.first, row.last));
        EXPECT_EQ(systems(), row.left);
        score.commandStack().undo();
        expectUndoable(score, [&] { return score.removeBarRange(row.first, row.last); });
    }
}

TEST_F(LayoutCommandsTest, columnsTellOfTheSystemsThatTheyChange)
{
    const Announcement both = {
        "AddBars(1,1) ModifyBarRange(0,0,0,0) ModifyBarRange(0,0,2,2) "
        "RequestMasterBarPlaylistUpdate FullScoreSystemsLayoutChanged "
        "ScoreViewSystemLayoutChanged(0) TrackSystemsLayoutChanged(1) ",
        "RemoveBars(1,1) ModifyBarRange(0,0,0,1) RequestMasterBarPlaylistUpdate "
        "FullScoreSystemsLayoutChanged ScoreViewSystemLayoutChanged(0) "
        "TrackSystemsLayoutChanged(1) "};
    expectUndoable(
        score, [&] { return score.createBars(1, 1); }, both);
}

/// The list and the number behind it are one state: neither outlives the other's undo.
TEST_F(LayoutCommandsTest, automaticSystemsForgetTheListAndTheDefault)
{
    ASSERT_TRUE(score.setFixedLayout(-1, 5));
    EXPECT_TRUE(systems().empty());
    EXPECT_EQ(model.fullScoreDefaultBarCountBySystem(), 5U);
    ASSERT_TRUE(score.setFullScoreSystemsLayout({3}));
    EXPECT_EQ(model.fullScoreDefaultBarCountBySystem(), 5U);
    ASSERT_TRUE(score.setAutoLayout(-1));
    EXPECT_TRUE(systems().empty());
    EXPECT_EQ(model.fullScoreDefaultBarCountBySystem(), 0U);
    score.commandStack().undo();
    EXPECT_EQ(systems(), std::vector<int>{3});
    EXPECT_EQ(model.fullScoreDefaultBarCountBySystem(), 5U);
    expectUndoable(
        score, [&] { return score.setAutoLayout(1); },
        Announcement{"TrackSystemsLayoutChanged(1) ", "TrackSystemsLayoutChanged(1) "});
}

TEST_F(LayoutCommandsTest, aFermataIsOverTheTimeOfItsBeat)
{
    const MasterBar &bar = *model.masterTrack()->masterBars()[1];
    ASSERT_TRUE(score.setFermata(at(1, 3), Fermata::Long));
    ASSERT_TRUE(score.setFermata(at(1, 0, 1, 2), Fermata::Short));
    const FermataMarks both = {FermataMark::at(0, Fermata::Short),
                               FermataMark::at(3, Fermata::Long)};
    EXPECT_EQ(bar.fermatas(), both);
    ASSERT_TRUE(score.setFermata(at(1, 0), Fermata::None));
    EXPECT_EQ(bar.fermatas().size(), 1U);
    expectUndoable(
        score,
        [&] {
            return score.editFermata(1, 3, {utils::rational(1, 2), Fermata::Medium, 75});
        },
        Announcement{"MasterBarFermata(1,1) ", "MasterBarFermata(1,1) "});
    score.commandStack().redo();
    const FermataMarks moved = {{utils::rational(1, 2), Fermata::Medium, 75}};
    EXPECT_EQ(bar.fermatas(), moved);
}

/// A mark that a shorter meter left behind the end may be changed where it is, and moved back in.
TEST_F(LayoutCommandsTest, aFermataBehindTheEndOfItsBarIsNotLost)
{
    ASSERT_TRUE(score.setFermata(at(1, 3), Fermata::Long));
    ASSERT_TRUE(score.setMasterTimeSignature(1, 1, {2, 4}));
    EXPECT_TRUE(score.editFermata(1, 3, FermataMark::at(3, Fermata::Short)));
    EXPECT_FALSE(score.editFermata(1, 3, FermataMark::at(4, Fermata::Short)));
    EXPECT_TRUE(score.editFermata(1, 3, FermataMark::at(2, Fermata::Short)));
}

/// Each staff of a track is as wide as the others, and each bar gets a width of its own.
TEST_F(LayoutCommandsTest, widthsAreThoseOfTheBars)
{
    ASSERT_TRUE(score.setBarLayoutRatios(1, 2, {0.5F, 2}));
    for (const auto &staff : model.track(1)->staves()) {
        EXPECT_EQ(staff->bar(2)->layoutRatio(), 0.5F);
        EXPECT_EQ(staff->bar(3)->layoutRatio(), 2);
        EXPECT_EQ(staff->bar(4)->layoutRatio(), 1);
    }
    EXPECT_EQ(model.track(0)->bar(2)->layoutRatio(), 1);
}

} // namespace
