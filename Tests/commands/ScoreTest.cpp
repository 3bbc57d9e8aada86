// SPDX-License-Identifier: MIT
#include "StackFixture.h"
#include "support/CommandLaw.h"

#include <ZarnCore/events/ZarnScoreEvents.h>

namespace zarn {

class IZarnRendererStyleSheet { };

} // namespace zarn

#include <gtest/gtest.h>

namespace {

using namespace zarn;

TEST(Score, isEmptyWhenFresh)
{
    const Score score;
    EXPECT_NE(score.masterTrack(), nullptr);
    EXPECT_EQ(score.masterTrack()->masterBarCount(), 0u);
    EXPECT_EQ(score.trackCount(), 0u);
    EXPECT_TRUE(score.tracks().empty());
    EXPECT_EQ(score.track(0), nullptr);
    EXPECT_EQ(score.tracksName(), QStringList());
    EXPECT_EQ(score.scoreModel()->parentScore(), &score);
    EXPECT_EQ(score.rendererStyleSheet(), nullptr);
    EXPECT_EQ(score.scoreCursor().index().trackIndex(), -1);
    const auto styleSheet = std::make_shared<IZarnRendererStyleSheet>();
    EXPECT_EQ(Score(styleSheet).rendererStyleSheet(), styleSheet);
}

TEST(Score, copyHasItsOwnMusicAndNoHistory)
{
    Score score;
    score.scoreModel()->createAndInsertTrack(0, InstrumentSet::unknown);
    score.track(0)->setName("Violin");
    ASSERT_TRUE(score.createBars(0, 3));
    score.scoreCursor().setIndex(ScoreModelIndex(score.scoreModel().get(), 0, 2, -1, 0, 0));

    Score copy(score);
    EXPECT_TRUE(*copy.scoreModel() == *score.scoreModel());
    EXPECT_EQ(copy.scoreModel()->parentScore(), &copy);
    EXPECT_EQ(copy.tracksName(), QStringList{QStringLiteral("Violin")});
    EXPECT_FALSE(copy.commandStack().undoAvailable());
    EXPECT_EQ(copy.scoreCursor().index().bar(), copy.track(0)->bar(2, 0));
    EXPECT_EQ(brokenRules(copy), "");
    ASSERT_TRUE(copy.removeBar(0));
    EXPECT_EQ(score.masterTrack()->masterBarCount(), 3u);

    // Assigning keeps the listeners and forgets the commands.
    int changes = 0;
    copy.connect<evt::ScoreChanged>(&changes, [&](const evt::ScoreChanged &) { ++changes; });
    const auto oldModel = copy.scoreModel();
    copy = score;
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(*copy.scoreModel() == *score.scoreModel());
    EXPECT_EQ(oldModel->parentScore(), nullptr);
    EXPECT_FALSE(copy.commandStack().undoAvailable());
    EXPECT_EQ(copy.scoreCursor().index().model(), copy.scoreModel().get());
    const Score &same = copy;
    copy = same;
    EXPECT_EQ(changes, 1);
}

TEST(Score, modelThatOutlivesItKnowsThatItIsGone)
{
    std::shared_ptr<ScoreModel> model;
    utils::ScopedConnection connection;
    {
        Score score;
        model = score.scoreModel();
        connection = score.connectScoped<evt::ScoreChanged>(&model, [](const auto &) {});
        EXPECT_TRUE(connection.isConnected());
    }
    EXPECT_EQ(model->parentScore(), nullptr);
    EXPECT_FALSE(connection.isConnected());
}

TEST_F(StackTest, cursorCopiesAreSavedPlacesAndSendNothing)
{
    std::vector<std::pair<int, int>> moves;
    score.connect<evt::ScoreCursorMoved>(this, [&](const evt::ScoreCursorMoved &moved) {
        moves.emplace_back(moved.oldValue().barIndex(), moved.newValue().barIndex());
    });
    ScoreCursor &cursor = score.scoreCursor();
    cursor.setIndex(ScoreModelIndex(nullptr, 0, 4, 1, 0, 0));
    EXPECT_EQ(cursor.index().model(), score.scoreModel().get());
    const auto saved = cursor.cloneScoreCursor();
    saved->setIndex(ScoreModelIndex(nullptr, 0, 9, 1, 0, 0));
    cursor.moveToCursor(*saved);
    cursor.moveToCursor(*saved);
    EXPECT_EQ(moves, (std::vector<std::pair<int, int>>{{-1, 4}, {4, 9}}));
    EXPECT_EQ(cursor.index().model(), score.scoreModel().get());
    score.disconnect<evt::ScoreCursorMoved>(this);
    score.disconnect<evt::ScoreChanged>(this);
    cursor.setIndex(ScoreModelIndex());
    EXPECT_EQ(moves.size(), 2u);
}

} // namespace
