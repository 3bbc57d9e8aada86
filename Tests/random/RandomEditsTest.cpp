// SPDX-License-Identifier: MIT
#include "support/RandomRun.h"
#include "support/ScoreFiles.h"
#include "support/SmallScore.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <gtest/gtest.h>

namespace {

using namespace zarn;

constexpr unsigned editsPerScore = 300;

/// A fault is followed to the edit that made it.
void expectToComeBack(const ScoreModel &model, std::uint64_t seed)
{
    const RandomRun run{model, editsPerScore, seed, 10};
    const auto result = run.run();
    if (!result.fault.empty())
        ADD_FAILURE() << "seed " << seed << ": " << result.fault << "\n" << run.findCulprit();
}

TEST(RandomEditsTest, comeBackOnASmallScore)
{
    const SmallScore small;
    small.model.setTrackGroups(
        {{0, 1, "Band", GroupSymbol::Bracket, true}, {1, 1, "Keys", GroupSymbol::Brace, false}});
    for (std::uint64_t seed = 1; seed <= 12; ++seed)
        expectToComeBack(small.model, seed);
}

TEST(RandomEditsTest, comeBackOnAnEmptyScore)
{
    const auto empty = std::make_shared<ScoreModel>();
    expectToComeBack(*empty, 1);
}

/// What a run is worth: it must have used every operation.
TEST(RandomEditsTest, useEveryOperation)
{
    const SmallScore small;
    const RandomRun run{small.model, 24000, 7, 4};
    const auto result = run.run();
    ASSERT_EQ(result.fault, "") << run.findCulprit();
    for (const RandomOperation &operation : randomOperations())
        EXPECT_GT(result.tally.accepted.count(operation.name), 0U) << operation.name;
    EXPECT_GT(result.tally.macros, 50U);
    EXPECT_GT(result.tally.transactions, 50U);
    EXPECT_GT(result.tally.abandoned, 10U);
    EXPECT_GT(result.tally.takenBack, 10U);
}

TEST(RandomEditsTest, comeBackOnRealScores)
{
    const auto paths = scoreFiles();
    ASSERT_FALSE(paths.empty());
    for (const std::string &path : paths) {
        SCOPED_TRACE(path);
        expectToComeBack(*readScore(path), 3);
    }
}

} // namespace
