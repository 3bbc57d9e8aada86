// SPDX-License-Identifier: MIT
#include "StackFixture.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/events/ZarnScoreEvents.h>

#include <thread>

namespace {

using zarn::CommandStack;
using zarn::CoreException;
namespace evt = zarn::evt;

TEST(Command, argumentsAreKeptAsTheyAre)
{
    Journal journal;
    JournalCommand command(journal, "A");
    command.addArg(QStringLiteral("%1"), QStringLiteral("%0 %1"));
    EXPECT_EQ(command.args(), QStringLiteral("{Name:A}{%1:%0 %1}"));
}

TEST_F(StackTest, newStackIsEmpty)
{
    EXPECT_FALSE(stack.undoAvailable());
    EXPECT_FALSE(stack.redoAvailable());
    EXPECT_EQ(stack.undoCount() + stack.redoCount(), 0u);
    EXPECT_EQ(stack.maximumUndo(), 69u);
    EXPECT_EQ(stack.undoCommandList() + stack.redoCommandList() + stack.undoArgList()
                  + stack.redoArgList(),
              QStringList());
    stack.undo();
    stack.redo();
    stack.endMacroCommand(true);
    stack.clear();
    EXPECT_THROW(stack.pushCommand(nullptr), CoreException);
    EXPECT_TRUE(isFree());
}

TEST_F(StackTest, eventsSurroundEachStepInOrder)
{
    listen();
    bool lockedInside = false;
    score.connect<evt::CommandExecuted>(&lockedInside, [&](const evt::CommandExecuted &) {
        lockedInside = true;
        EXPECT_FALSE(stack.tryLock()) << "on the thread that is inside a command";
        EXPECT_EQ(score.currentSender<evt::CommandExecuted>(), &stack);
        std::thread([&] { EXPECT_FALSE(stack.tryLock()) << "on another thread"; }).join();
    });
    push("A");
    EXPECT_EQ(journal.take(), "pushed:A A+ executed ");
    EXPECT_TRUE(lockedInside);
    stack.undo();
    EXPECT_EQ(journal.take(), "willUndo:A A- executed ");
    stack.redo();
    EXPECT_EQ(journal.take(), "willRedo:A A+ executed ");
    EXPECT_TRUE(isFree());
}

TEST_F(StackTest, redoStoreIsClearedOnlyAfterTheAnnouncement)
{
    push("A");
    push("B");
    stack.undo();
    std::string atAnnouncement;
    std::string atExecution;
    score.connect<evt::CommandPushed>(this, [&](const evt::CommandPushed &) {
        atAnnouncement = redoNames() + "/" + undoNames();
    });
    score.connect<evt::CommandExecuted>(
        this, [&](const evt::CommandExecuted &) { atExecution = redoNames() + "/" + undoNames(); });
    push("C");
    EXPECT_EQ(atAnnouncement, "B/A");
    EXPECT_EQ(atExecution, "/C A");
    EXPECT_EQ(journal.alive, (std::multiset<std::string>{"A", "C"}));
    EXPECT_EQ(stack.undoArgList().join(QString()), QStringLiteral("{Name:C}{Name:A}"));
}

TEST_F(StackTest, ringForgetsTheOldest)
{
    for (int i = 0; i < 70; ++i)
        push(std::to_string(i));
    EXPECT_EQ(stack.undoCount(), 69u);
    EXPECT_EQ(journal.alive.count("0"), 0u);
    for (int i = 0; i < 69; ++i)
        stack.undo();
    journal.take();
    EXPECT_FALSE(stack.undoAvailable());
    stack.undo();
    EXPECT_EQ(journal.take(), "");
    EXPECT_EQ(stack.redoCount(), 69u);
    for (int i = 0; i < 70; ++i)
        stack.redo();
    EXPECT_EQ(stack.undoCount(), 69u);
    EXPECT_EQ(stack.undoCommandList().first(), QStringLiteral("69"));
}

TEST_F(StackTest, slotsLeftOccupiedCountAndAreEmptyOtherwise)
{
    for (const char *name : {"A", "B", "C"})
        push(name);
    stack.setMaximumUndo(2);
    EXPECT_EQ(stack.maximumUndo(), 2u);
    EXPECT_TRUE(journal.alive.empty());
    EXPECT_EQ(stack.undoCount(), 2u);
    EXPECT_FALSE(stack.undoAvailable());
    EXPECT_EQ(undoNames(), "");
    push("D");
    EXPECT_EQ(stack.undoCount(), 2u);
    EXPECT_EQ(undoNames(), "D");
    stack.undo();
    EXPECT_EQ(stack.undoCount(), 1u);
    EXPECT_FALSE(stack.undoAvailable()) << "the ring wraps onto a slot without a command";
    push("E");
    push("F");
    EXPECT_EQ(undoNames(), "F E");
    EXPECT_EQ(stack.undoCount(), 2u);
}

TEST_F(StackTest, withoutSlotsCommandsAreExecutedAndDiscarded)
{
    listen();
    stack.setMaximumUndo(0);
    push("A");
    EXPECT_EQ(journal.take(), "pushed:A A+ executed ");
    EXPECT_TRUE(journal.alive.empty());
    stack.undo();
    stack.redo();
    stack.printTop(3);
    EXPECT_EQ(stack.undoCount(), 0u);
    journal.failing = "B+";
    EXPECT_THROW(push("B"), std::runtime_error);
    EXPECT_TRUE(journal.alive.empty());
    EXPECT_TRUE(isFree());
}

TEST_F(StackTest, clearDoesNotReachBehindAWrap)
{
    stack.setMaximumUndo(4);
    for (const char *name : {"A", "B", "C", "D", "E", "F"})
        push(name);
    stack.clear();
    EXPECT_EQ(journal.alive, (std::multiset<std::string>{"C", "D"}));
    EXPECT_EQ(stack.undoCount(), 2u);
    EXPECT_FALSE(stack.undoAvailable());
    push("G");
    EXPECT_EQ(undoNames(), "G D C");
    push("H");
    push("I");
    EXPECT_EQ(journal.alive, (std::multiset<std::string>{"D", "G", "H", "I"}));
}

TEST(CommandStack, diesWithEverythingItHolds)
{
    Journal journal;
    {
        zarn::Score score;
        CommandStack &stack = score.commandStack();
        stack.setMaximumUndo(3);
        for (const char *name : {"A", "B", "C", "D", "E"})
            stack.pushCommand(new JournalCommand(journal, name));
        stack.undo();
        stack.beginMacroCommand();
        stack.beginMacroCommand();
        stack.pushCommand(new JournalCommand(journal, "F"));
        EXPECT_EQ(journal.alive.size(), 4u);
    }
    EXPECT_TRUE(journal.alive.empty());
    {
        CommandStack stack(nullptr);
        stack.pushCommand(new JournalCommand(journal, "A"));
        stack.undo();
        stack.redo();
    }
    EXPECT_TRUE(journal.alive.empty());
}

TEST_F(StackTest, aReplacedDocumentStartsWithAStackAsGoodAsNew)
{
    stack.setMaximumUndo(4);
    for (const char *name : {"A", "B", "C", "D", "E", "F"})
        push(name);
    stack.setMaximumUndo(3);
    for (const char *name : {"G", "H", "I", "J"})
        push(name);
    stack.undo();
    const auto replaceAndExpectNew = [&](const auto &replace) {
        stack.beginMacroCommand();
        push("K");
        stack.beginMacroCommand();
        EXPECT_FALSE(stack.isClean());
        replace();
        EXPECT_EQ(stack.undoCount() + stack.redoCount(), 0u);
        EXPECT_EQ(stack.maximumUndo(), 3u);
        EXPECT_FALSE(stack.isMacroOpen());
        EXPECT_TRUE(stack.isClean());
        EXPECT_TRUE(journal.alive.empty());
        push("L");
        EXPECT_EQ(undoNames(), "L");
    };
    replaceAndExpectNew([&] { score.setScoreModel(std::make_shared<zarn::ScoreModel>()); });
    const zarn::Score other;
    replaceAndExpectNew([&] { score = other; });
}

TEST_F(StackTest, aMacroIsNothingUntilItEndsAndOneStepFromTheSavedState)
{
    stack.beginMacroCommand();
    push("A");
    push("B");
    EXPECT_TRUE(stack.isClean());
    stack.endMacroCommand(true);
    EXPECT_FALSE(stack.isClean());
    stack.undo();
    EXPECT_TRUE(stack.isClean());
    stack.setMaximumUndo(5);
    EXPECT_TRUE(stack.isClean()) << "dropping steps changes no score";
    push("C");
    stack.setMaximumUndo(5);
    EXPECT_FALSE(stack.isClean());
}

TEST_F(StackTest, listingStopsAtTheWantedPosition)
{
    for (const char *name : {"A", "B", "C"})
        push(name);
    testing::internal::CaptureStdout();
    stack.printTop(1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "***** STACK TOP 1 *****\n0 C\n1 B\n***********************\n");
    testing::internal::CaptureStdout();
    stack.printTop(4294967295u);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "***** STACK TOP 4294967295 *****\n0 C\n1 B\n2 A\n***********************\n");
}

TEST_F(StackTest, undoMovesTheCursorBack)
{
    const auto at = [](int bar) {
        zarn::ScoreModelIndex index;
        index.setTrackIndex(0, false);
        index.setBarIndex(bar);
        return index;
    };
    int moves = 0;
    score.connect<evt::ScoreCursorMoved>(&moves, [&](const evt::ScoreCursorMoved &moved) {
        ++moves;
        EXPECT_EQ(moved.newValue(), score.scoreCursor().index());
    });
    score.scoreCursor().setIndex(at(3));
    push("A");
    score.scoreCursor().setIndex(at(5));
    score.scoreCursor().setIndex(at(5));
    push("B");
    EXPECT_EQ(moves, 2);
    score.scoreCursor().setIndex(at(9));
    stack.undo();
    EXPECT_EQ(score.scoreCursor().index().barIndex(), 5);
    stack.undo();
    EXPECT_EQ(score.scoreCursor().index().barIndex(), 3);
    stack.redo();
    score.scoreCursor().setIndex(at(7));
    stack.undo();
    EXPECT_EQ(score.scoreCursor().index().barIndex(), 3);
    EXPECT_EQ(score.scoreCursor().index().model(), score.scoreModel().get());

    // Commands that clear() does not reach have lost their cursors: undoing them moves nothing.
    stack.setMaximumUndo(2);
    for (const char *name : {"A", "B", "C"})
        push(name);
    stack.clear();
    push("D");
    score.scoreCursor().setIndex(at(1));
    stack.undo();
    score.scoreCursor().setIndex(at(2));
    stack.undo();
    EXPECT_EQ(score.scoreCursor().index().barIndex(), 2);
}

} // namespace
