// SPDX-License-Identifier: MIT
#include "StackFixture.h"
#include "support/NativeDocument.h"
#include "support/SmallScore.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/commands/ZarnMacroCommandRecorder.h>
#include <ZarnCore/commands/ZarnTransaction.h>
#include <ZarnCore/events/ZarnBarEvents.h>

#include <functional>
#include <optional>
#include <vector>

namespace {

using zarn::CoreException;
using zarn::MacroCommandRecorder;
using zarn::Transaction;
namespace evt = zarn::evt;

struct TransactionTest : StackTest {
    std::optional<Transaction> open;

    Transaction &begin(const char *name = "T")
    {
        return open.emplace(&score, QString::fromUtf8(name));
    }
    /// "undo list/redo list"
    std::string names() const { return undoNames() + "/" + redoNames(); }
};

TEST_F(TransactionTest, runsAtOnceAndIsOneStepWhenCommitted)
{
    listen();
    begin();
    EXPECT_EQ(journal.take(), "");
    push("A");
    EXPECT_EQ(journal.take(), "pushed:T begin A+ ");
    push("B");
    EXPECT_EQ(journal.take(), "B+ ");
    EXPECT_EQ(names(), "/");
    EXPECT_TRUE(isFree()) << "readers may come between two operations";
    open->commit();
    EXPECT_EQ(journal.take(), "end executed ");
    open.reset();
    stack.undo();
    EXPECT_EQ(journal.take(), "willUndo:T begin B- A- end executed ");
    stack.redo();
    EXPECT_EQ(journal.take(), "willRedo:T begin A+ B+ end executed ");
    EXPECT_EQ(names(), "T/");
    EXPECT_THROW(Transaction(nullptr, QString()), CoreException);
}

TEST_F(TransactionTest, isTakenBackWithoutACommitAndLeavesTheStackAsItWas)
{
    stack.setMaximumUndo(2);
    for (const char *name : {"X", "Y", "Z"})
        push(name);
    stack.undo();
    stack.setClean();
    listen();
    journal.take();
    begin();
    push("A");
    push("B");
    EXPECT_FALSE(stack.isClean());
    open.reset();
    EXPECT_EQ(journal.take(), "pushed:T begin A+ B+ B- A- end executed ");
    EXPECT_EQ(names(), "Y/Z");
    EXPECT_TRUE(stack.isClean());
    EXPECT_EQ(journal.alive, (std::multiset<std::string>{"Y", "Z"}));
    stack.redo();
    begin();
    push("A");
    open->commit();
    EXPECT_EQ(names(), "T Z/") << "the oldest goes when the step comes";
    EXPECT_FALSE(stack.isClean());
    stack.undo();
    stack.undo();
    EXPECT_TRUE(stack.isClean());
}

TEST_F(TransactionTest, nothingThatRanIsNoStepAndDropsNothing)
{
    push("X");
    stack.undo();
    listen();
    journal.take();
    begin();
    open->commit();
    open->commit();
    begin();
    open.reset();
    EXPECT_EQ(journal.take(), "");
    journal.failing = "A+";
    begin();
    EXPECT_THROW(push("A"), std::runtime_error);
    open->commit();
    EXPECT_EQ(journal.take(), "pushed:T begin end ");
    EXPECT_EQ(names(), "/X");
    stack.setMaximumUndo(0);
    begin();
    push("B");
    open->commit();
    EXPECT_EQ(journal.take(), "pushed:T begin B+ end executed ");
    EXPECT_TRUE(journal.alive.empty());
}

TEST_F(TransactionTest, goesOnAfterACommandThatThrows)
{
    begin();
    push("A");
    journal.failing = "B+";
    EXPECT_THROW(push("B"), std::runtime_error);
    EXPECT_EQ(journal.alive.count("B"), 0u);
    push("C");
    open->commit();
    stack.undo();
    EXPECT_EQ(journal.take(), "A+ C+ C- A- ");
}

TEST_F(TransactionTest, nestsAndMixesWithMacros)
{
    listen();
    begin("outer");
    push("A");
    {
        Transaction inner(&score, QStringLiteral("inner"));
        push("B");
        inner.commit();
    }
    {
        Transaction lost(&score, QStringLiteral("lost"));
        push("C");
        const Transaction untouched(&score, QString());
    }
    EXPECT_EQ(journal.take(), "pushed:outer begin A+ begin B+ end begin C+ C- end ");
    {
        MacroCommandRecorder macro(&score);
        push("D");
        Transaction waiting(&score, QString());
        push("E");
        EXPECT_TRUE(stack.isMacroOpen());
        waiting.commit();
        {
            const Transaction dropped(&score, QString());
            push("F");
        }
        EXPECT_EQ(journal.take(), "");
        macro.commit();
    }
    EXPECT_EQ(journal.take(), "begin D+ begin E+ end end ");
    journal.failing = "H+";
    stack.beginMacroCommand();
    push("G");
    push("H");
    EXPECT_THROW(stack.endMacroCommand(true), std::runtime_error);
    EXPECT_EQ(journal.take(), "begin G+ G- end ");
    open->commit();
    EXPECT_EQ(journal.take(), "end executed ");
    stack.undo();
    EXPECT_EQ(journal.take(),
              "willUndo:outer begin begin begin E- end D- end begin B- end A- end executed ");
    EXPECT_TRUE(journal.alive.count("C") + journal.alive.count("F") == 0);
    EXPECT_EQ(names(), "/outer");
}

TEST_F(TransactionTest, historyStandsStillWhileOneIsOpen)
{
    push("X");
    push("Y");
    stack.undo();
    const zarn::Score other;
    const std::vector<std::function<void()>> changes = {
        [&] { stack.undo(); },
        [&] { stack.redo(); },
        [&] { stack.clear(); },
        [&] { stack.clearUndoStack(); },
        [&] { stack.clearRedoStack(); },
        [&] { stack.setMaximumUndo(5); },
        [&] { stack.setClean(); },
        [&] { score.setScoreModel(std::make_shared<zarn::ScoreModel>()); },
        [&] { score = other; },
    };
    const auto model = score.scoreModel();
    for (int round = 0; round < 2; ++round) {
        begin();
        EXPECT_TRUE(stack.isTransactionOpen());
        if (round == 1)
            push("A");
        for (const auto &change : changes)
            EXPECT_THROW(change(), CoreException);
        open.reset();
    }
    EXPECT_FALSE(stack.isTransactionOpen());
    EXPECT_EQ(names(), "X/Y");
    EXPECT_EQ(score.scoreModel(), model);
    for (const auto &change : changes)
        EXPECT_NO_THROW(change());
}

TEST_F(TransactionTest, listenersThatThrowLeaveNothingBehind)
{
    push("X");
    stack.undo();
    listen();
    begin();
    for (const char *fault : {"pushed:T", "begin", "A+"}) {
        journal.take();
        journal.failing = fault;
        EXPECT_THROW(push("A"), std::runtime_error);
        EXPECT_TRUE(isFree());
    }
    EXPECT_EQ(journal.take(), "begin ") << "announced once only";
    journal.failing.clear();
    push("A");
    journal.failing = "end";
    EXPECT_THROW(open->commit(), std::runtime_error);
    EXPECT_EQ(journal.take(), "A+ A- ");
    EXPECT_EQ(names(), "/X");
    open.reset();
    begin();
    push("A");
    journal.failing = "executed";
    EXPECT_THROW(open->commit(), std::runtime_error);
    EXPECT_EQ(names(), "T/") << "the step was done";
    open.reset();
    EXPECT_EQ(names(), "T/");
    // One that is taken back tells as much as it can, and goes on.
    begin();
    push("B");
    push("C");
    journal.take();
    journal.failing = "end";
    open.reset();
    EXPECT_EQ(journal.take(), "C- B- executed ");
}

/// What is taken back goes back, whatever listeners do.
TEST(TransactionOnAScoreTest, noListenerKeepsItFromBeingTakenBack)
{
    SmallScore small;
    zarn::Score &score = small.score;
    const std::string before = test::writeNative(small.model);
    int failures = 0;
    score.connect<evt::RemoveBars>(&failures, [&](const evt::RemoveBars &) {
        ++failures;
        throw std::runtime_error("a listener fails");
    });
    const auto edit = [&] {
        EXPECT_TRUE(score.createBars(1, 2));
        EXPECT_TRUE(score.setMasterBarDoubleBar(1, true));
        EXPECT_TRUE(score.createBars(0, 1));
    };
    {
        const Transaction transaction(&score, QString());
        edit();
        EXPECT_TRUE(score.createBeat(small.at(0, 0), zarn::RhythmValue()));
        EXPECT_TRUE(score.setStringedNote(small.at(0, 0), 0, 3)) << "answers truly";
        EXPECT_FALSE(score.setStringedNote(small.at(0, 1), 0, 3));
    }
    EXPECT_EQ(failures, 2);
    EXPECT_EQ(test::writeNative(small.model), before);
    score.commandStack().beginMacroCommand();
    edit();
    score.removeTrack(7);
    EXPECT_THROW(score.commandStack().endMacroCommand(true), CoreException);
    EXPECT_EQ(failures, 4);
    EXPECT_EQ(test::writeNative(small.model), before);
    EXPECT_EQ(score.commandStack().undoCount(), 0u);
}

TEST_F(TransactionTest, theCursorGoesBackToBeforeTheWholeStep)
{
    const auto go = [&](int bar) {
        score.scoreCursor().setIndex(zarn::ScoreModelIndex(nullptr, 0, bar, 0, 0, 0));
    };
    const auto bar = [&] { return score.scoreCursor().index().barIndex(); };
    go(1);
    begin();
    go(2);
    push("A");
    go(3);
    {
        const Transaction inner(&score, QString());
        push("B");
        go(4);
    }
    EXPECT_EQ(bar(), 3);
    push("C");
    go(5);
    open->commit();
    EXPECT_EQ(bar(), 5);
    stack.undo();
    EXPECT_EQ(bar(), 2);
    go(6);
    begin();
    push("D");
    go(7);
    open.reset();
    EXPECT_EQ(bar(), 6);
}

TEST_F(TransactionTest, endsOutOfOrderAreMended)
{
    // The outer one ends first.
    begin();
    push("A");
    auto inner = std::make_unique<Transaction>(&score, QString());
    push("B");
    EXPECT_THROW(open->commit(), CoreException);
    open.reset();
    EXPECT_EQ(journal.take(), "A+ B+ B- A- ");
    EXPECT_THROW(inner->commit(), CoreException);
    inner.reset();
    // A macro ends around a transaction that waits.
    stack.beginMacroCommand();
    push("C");
    begin();
    push("D");
    stack.endMacroCommand(true);
    EXPECT_EQ(journal.take(), "C+ ");
    EXPECT_THROW(open->commit(), CoreException);
    open.reset();
    EXPECT_FALSE(stack.isTransactionOpen());
    stack.undo();
    EXPECT_EQ(names(), "/");
}

TEST_F(TransactionTest, whatEndsWhereNothingCanChangeIsTakenBackAtTheNextChange)
{
    begin();
    push("A");
    ASSERT_TRUE(stack.tryLock());
    open.reset();
    stack.unlock();
    EXPECT_EQ(journal.take(), "A+ ");
    push("B");
    EXPECT_EQ(journal.take(), "A- B+ ");

    struct Ending : zarn::Command {
        explicit Ending(std::optional<Transaction> &transaction) : _transaction(transaction) { }
        void redo() override { _transaction.reset(); }
        void undo() override { }
        std::optional<Transaction> &_transaction;
    };
    begin();
    push("C");
    stack.pushCommand(new Ending(open));
    stack.undo();
    EXPECT_EQ(journal.take(), "C+ C- B- ");
}

TEST_F(TransactionTest, aListenerOfTheAnnouncementMayPushWhatComesFirst)
{
    bool once = true;
    score.connect<evt::CommandPushed>(this, [&](const evt::CommandPushed &) {
        if (std::exchange(once, false))
            push("first");
    });
    begin();
    push("A");
    open->commit();
    EXPECT_EQ(journal.take(), "first+ A+ ");
    stack.undo();
    EXPECT_EQ(journal.take(), "A- first- ");
}

} // namespace
