// SPDX-License-Identifier: MIT
#include "StackFixture.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/commands/ZarnMacroCommandRecorder.h>
#include <ZarnCore/events/ZarnScoreEvents.h>

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

namespace {

using zarn::CoreException;
namespace evt = zarn::evt;

TEST_F(StackTest, failureBeforeTheChangeLeavesTheStackAsItWas)
{
    stack.setMaximumUndo(3);
    listen();
    for (const char *name : {"A", "B", "C", "D"})
        push(name);
    stack.undo();
    const auto expectSame = [&](const char *what) {
        SCOPED_TRACE(what);
        EXPECT_EQ(undoNames(), "C B");
        EXPECT_EQ(redoNames(), "D");
        EXPECT_EQ(stack.undoCount(), 2u);
        EXPECT_EQ(journal.alive, (std::multiset<std::string>{"B", "C", "D"}));
        EXPECT_TRUE(isFree());
    };
    const std::vector<std::pair<const char *, std::function<void()>>> faults = {
        {"E+", [&] { push("E"); }},    {"pushed:E", [&] { push("E"); }},
        {"C-", [&] { stack.undo(); }}, {"willUndo:C", [&] { stack.undo(); }},
        {"D+", [&] { stack.redo(); }}, {"willRedo:D", [&] { stack.redo(); }},
    };
    for (const auto &[fault, act] : faults) {
        journal.failing = fault;
        EXPECT_THROW(act(), std::runtime_error);
        expectSame(fault);
    }
    // A full ring: the oldest command must come back too.
    journal.failing.clear();
    stack.redo();
    journal.failing = "E+";
    EXPECT_THROW(push("E"), std::runtime_error);
    EXPECT_EQ(undoNames(), "D C B");
}

TEST_F(StackTest, failingListenerOfExecutedFindsTheStepDone)
{
    listen();
    journal.failing = "executed";
    EXPECT_THROW(push("A"), std::runtime_error);
    EXPECT_EQ(undoNames() + "/" + redoNames(), "A/");
    EXPECT_THROW(stack.undo(), std::runtime_error);
    EXPECT_EQ(undoNames() + "/" + redoNames(), "/A");
    EXPECT_THROW(stack.redo(), std::runtime_error);
    EXPECT_EQ(undoNames() + "/" + redoNames(), "A/");
    EXPECT_EQ(journal.alive.size(), 1u);
    EXPECT_TRUE(isFree());
    EXPECT_EQ(journal.take(), "pushed:A A+ willUndo:A A- willRedo:A A+ ");
}

TEST_F(StackTest, stepsInsideAStepRaise)
{
    const std::vector<std::function<void()>> changes = {
        [&] { push("X"); },
        [&] { stack.undo(); },
        [&] { stack.redo(); },
        [&] { stack.clear(); },
        [&] { stack.clearUndoStack(); },
        [&] { stack.clearRedoStack(); },
        [&] { stack.setMaximumUndo(5); },
        [&] { stack.beginMacroCommand(); },
        [&] { stack.setClean(); },
        [&] { score.setScoreModel(std::make_shared<zarn::ScoreModel>()); },
        [&] {
            zarn::MacroCommandRecorder recorder(&score);
            push("X");
        },
    };
    int raised = 0;
    const auto tryAll = [&](const auto &) {
        for (const auto &change : changes) {
            EXPECT_THROW(change(), CoreException);
            ++raised;
        }
    };
    struct Meddling : zarn::Command {
        std::function<void(int)> meddle;
        void redo() override { meddle(0); }
        void undo() override { meddle(0); }
    };
    score.connect<evt::CommandWillUndo>(this, tryAll);
    score.connect<evt::CommandWillRedo>(this, tryAll);
    score.connect<evt::CommandExecuted>(this, tryAll);
    auto command = std::make_unique<Meddling>();
    command->meddle = tryAll;
    stack.pushCommand(command.release());
    stack.undo();
    stack.redo();
    EXPECT_EQ(raised, 11 * 8);
    EXPECT_FALSE(stack.isMacroOpen());
    EXPECT_EQ(stack.undoCount(), 1u);
    EXPECT_TRUE(journal.alive.empty());
    EXPECT_TRUE(isFree());
}

TEST_F(StackTest, listenerOfTheAnnouncementMayPushWhatComesFirst)
{
    bool once = true;
    score.connect<evt::CommandPushed>(this, [&](const evt::CommandPushed &) {
        if (std::exchange(once, false))
            push("first");
    });
    push("A");
    EXPECT_EQ(journal.take(), "first+ A+ ");
    EXPECT_EQ(undoNames(), "A first");
}

TEST_F(StackTest, threadThatReadsCannotEdit)
{
    ASSERT_TRUE(stack.tryLock());
    EXPECT_FALSE(stack.tryLock());
    EXPECT_THROW(push("A"), CoreException);
    std::thread([&] {
        EXPECT_FALSE(stack.tryLock());
        EXPECT_THROW(stack.unlock(), CoreException);
    }).join();
    stack.unlock();
    EXPECT_THROW(stack.unlock(), CoreException);
    push("A");
    // A listener that keeps the lock would make the undo wait for itself.
    score.connect<evt::CommandWillUndo>(
        this, [&](const evt::CommandWillUndo &) { EXPECT_TRUE(stack.tryLock()); });
    EXPECT_THROW(stack.undo(), CoreException);
    stack.unlock();
    EXPECT_EQ(undoNames(), "A");
}

TEST_F(StackTest, readersSeeWholeDocumentsWhileTheyAreReplaced)
{
    const auto makeModel = [](unsigned bars) {
        auto model = std::make_shared<zarn::ScoreModel>();
        model->insertEmptyBarColumns(0, bars);
        model->createAndInsertTrack(0, zarn::InstrumentSet::flute);
        return model;
    };
    const auto expectWhole = [&] {
        const zarn::ScoreModel &model = *score.scoreModel();
        EXPECT_EQ(model.parentScore(), &score);
        EXPECT_EQ(model.masterTrack()->playlist().size(), model.masterTrack()->masterBarCount());
    };
    zarn::Score other;
    other.setScoreModel(makeModel(3));
    std::atomic<bool> isOver{false};
    std::atomic<int> reads{0};
    std::thread reader([&] {
        while (!isOver) {
            if (!stack.tryLock()) {
                std::this_thread::yield();
                continue;
            }
            expectWhole();
            ++reads;
            stack.unlock();
        }
    });
    for (unsigned i = 0; i < 200 || reads < 10; ++i) {
        score.setScoreModel(makeModel(i % 5));
        expectWhole();
        score.createBars(0, 2);
        expectWhole();
        score = other;
    }
    isOver = true;
    reader.join();
}

TEST_F(StackTest, readersSeeTheScoreBetweenCommandsOnly)
{
    // Two numbers that a command changes one after the other: equal whenever the lock is free.
    struct Both : zarn::Command {
        Both(int &first, int &second) : _first(first), _second(second) { }
        void redo() override
        {
            ++_first;
            std::this_thread::yield();
            ++_second;
        }
        void undo() override
        {
            --_first;
            --_second;
        }
        int &_first;
        int &_second;
    };
    int first = 0;
    int second = 0;
    std::atomic<bool> isOver{false};
    std::atomic<int> reads{0};
    std::thread reader([&] {
        while (!isOver) {
            if (!stack.tryLock()) {
                std::this_thread::yield();
                continue;
            }
            EXPECT_EQ(first, second);
            ++reads;
            stack.unlock();
        }
    });
    for (int i = 0; i < 2000 || reads < 10; ++i) {
        stack.pushCommand(new Both(first, second));
        stack.undo();
        stack.redo();
    }
    isOver = true;
    reader.join();
    EXPECT_GE(reads, 10);
}

} // namespace
