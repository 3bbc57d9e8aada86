// SPDX-License-Identifier: MIT
#include "CommandLaw.h"

#include "EventLog.h"
#include "EventMirror.h"
#include "ScoreDump.h"
#include "TextDifference.h"

#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/score/ZarnScore.h>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace zarn;

namespace {

/// The newest command of the stack and its arguments.
std::string newestCommand(const Score &score)
{
    const CommandStack &stack = score.commandStack();
    return (stack.undoCommandList().value(0) + stack.undoArgList().value(0)).toStdString();
}

void expectSame(const std::string &expected, const std::string &found, const std::string &what)
{
    if (found != expected)
        ADD_FAILURE() << what << ": " << textDifference(expected, found);
}

} // namespace

std::string brokenRules(const Score &score)
{
    std::string rules;
    for (const std::string &rule : checkModel(*score.scoreModel()))
        rules += rule + "\n";
    return rules;
}

void expectUndoable(Score &score, const std::function<bool()> &act,
                    const std::optional<Announcement> &announcement)
{
    const std::string before = dump(score);
    EventMirror mirror(score);
    EventLog log(score);
    ASSERT_TRUE(act());
    SCOPED_TRACE(newestCommand(score));
    const std::string after = dump(score);
    EXPECT_NE(after, before) << "the operation changed nothing";
    const std::string done = log.take();
    std::string undone;
    if (announcement) {
        EXPECT_EQ(done, announcement->done);
    }
    for (int round = 0; round < 3; ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        EXPECT_EQ(brokenRules(score), "");
        score.commandStack().undo();
        expectSame(before, dump(score), "undone");
        EXPECT_EQ(brokenRules(score), "");
        if (round == 0)
            undone = log.take();
        else
            EXPECT_EQ(log.take(), undone);
        score.commandStack().redo();
        expectSame(after, dump(score), "redone");
        EXPECT_EQ(log.take(), done);
    }
    if (announcement) {
        EXPECT_EQ(undone, announcement->undone);
    }
    score.commandStack().undo();
    expectSame(before, dump(score), "undone");
    EXPECT_EQ(mirror.fault(), "");
}

void expectTakenBackWhenAListenerThrows(Score &score, const std::function<bool()> &act)
{
    const std::string before = dump(score);
    EventMirror mirror(score);
    EventLog log(score);
    CommandStack &stack = score.commandStack();
    const unsigned undoCount = stack.undoCount();
    ASSERT_TRUE(act());
    SCOPED_TRACE(newestCommand(score));
    const int doneCount = log.count();
    log.take();
    stack.undo();
    const int undoneCount = log.count();
    for (int number = 1; number <= doneCount; ++number) {
        log.throwAt(number);
        EXPECT_THROW(act(), std::runtime_error) << "event " << number;
        expectSame(before, dump(score), "done and taken back");
        EXPECT_EQ(stack.undoCount(), undoCount);
        EXPECT_EQ(brokenRules(score), "");
    }
    log.throwAt(0);
    ASSERT_TRUE(act());
    const std::string after = dump(score);
    for (int number = 1; number <= undoneCount; ++number) {
        log.throwAt(number);
        EXPECT_THROW(stack.undo(), std::runtime_error) << "event " << number;
        expectSame(after, dump(score), "undone and taken back");
    }
    log.throwAt(0);
    stack.undo();
    expectSame(before, dump(score), "undone");
    EXPECT_EQ(mirror.fault(), "");
}

void expectRefused(Score &score, const std::function<bool()> &act)
{
    const std::string before = dump(score);
    EventLog log(score);
    const unsigned undoCount = score.commandStack().undoCount();
    if (act())
        ADD_FAILURE() << "accepted: " << newestCommand(score);
    expectSame(before, dump(score), "refused");
    EXPECT_EQ(log.take(), "");
    EXPECT_EQ(score.commandStack().undoCount(), undoCount);
}
