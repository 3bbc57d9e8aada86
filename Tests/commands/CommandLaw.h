// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <gtest/gtest.h>

#include <string>

/// The broken rules of a score's tree, one per line; empty for a sound tree.
inline std::string brokenRules(const zarn::Score &score)
{
    std::string rules;
    for (const std::string &rule : zarn::checkModel(*score.scoreModel()))
        rules += rule + "\n";
    return rules;
}

/// The law of every command: undo gives back the score that redo found, redo the one that it made,
/// as often as one likes, and the tree is sound at each step. `act` is an operation of the score
/// and answers whether it was done.
template <class Act>
void expectUndoable(zarn::Score &score, Act act)
{
    const auto before = score.scoreModel()->clone();
    ASSERT_TRUE(act());
    const auto after = score.scoreModel()->clone();
    EXPECT_TRUE(*after != *before) << "the operation changed nothing";
    EXPECT_EQ(brokenRules(score), "");
    for (int round = 0; round < 3; ++round) {
        score.commandStack().undo();
        EXPECT_TRUE(*score.scoreModel() == *before) << "undo, round " << round;
        EXPECT_EQ(brokenRules(score), "");
        score.commandStack().redo();
        EXPECT_TRUE(*score.scoreModel() == *after) << "redo, round " << round;
        EXPECT_EQ(brokenRules(score), "");
    }
    score.commandStack().undo();
    EXPECT_TRUE(*score.scoreModel() == *before);
}

/// An operation that must be refused: nothing changes, nothing reaches the command stack.
template <class Act>
void expectRefused(zarn::Score &score, Act act)
{
    const auto before = score.scoreModel()->clone();
    const auto undoCount = score.commandStack().undoCount();
    EXPECT_FALSE(act());
    EXPECT_TRUE(*score.scoreModel() == *before);
    EXPECT_EQ(score.commandStack().undoCount(), undoCount);
}
