// SPDX-License-Identifier: MIT
#include "StackFixture.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/commands/ZarnMacroCommand.h>
#include <ZarnCore/commands/ZarnMacroCommandRecorder.h>

namespace {

using zarn::MacroCommand;
using zarn::MacroCommandRecorder;
namespace evt = zarn::evt;

TEST_F(StackTest, committedRecorderIsOneStep)
{
    listen();
    {
        MacroCommandRecorder recorder(&score);
        for (const char *name : {"A", "B", "C"})
            push(name);
        EXPECT_EQ(journal.take(), "");
        recorder.commit();
    }
    EXPECT_EQ(journal.take(), "pushed: begin A+ B+ C+ end executed ");
    stack.undo();
    EXPECT_EQ(journal.take(), "willUndo: begin C- B- A- end executed ");
    stack.redo();
    EXPECT_EQ(journal.take(), "willRedo: begin A+ B+ C+ end executed ");
    EXPECT_EQ(stack.undoCount(), 1u);
}

TEST_F(StackTest, recordersNest)
{
    {
        MacroCommandRecorder outer(&score);
        push("A");
        {
            MacroCommandRecorder inner(&score);
            push("B");
            inner.commit();
        }
        {
            MacroCommandRecorder abandoned(&score);
            push("C");
        }
        push("D");
        outer.commit();
    }
    EXPECT_EQ(journal.take(), "A+ B+ D+ ");
    stack.undo();
    EXPECT_EQ(journal.take(), "D- B- A- ");
    {
        MacroCommandRecorder outer(&score);
        MacroCommandRecorder inner(&score);
        push("E");
        inner.commit();
    }
    EXPECT_EQ(journal.take(), "");
    EXPECT_EQ(stack.redoCount(), 1u) << "a dropped macro leaves the stack as it was";
    EXPECT_EQ(journal.alive.count("E"), 0u);
}

TEST_F(StackTest, failingMacroTakesBackWhatRan)
{
    listen();
    const auto record = [&] {
        stack.beginMacroCommand();
        for (const char *name : {"A", "B", "C"})
            push(name);
        stack.endMacroCommand(true);
    };
    journal.failing = "C+";
    EXPECT_THROW(record(), std::runtime_error);
    EXPECT_EQ(journal.take(), "pushed: begin A+ B+ B- A- end ");
    EXPECT_TRUE(journal.alive.empty());
    EXPECT_TRUE(isFree());
    journal.failing = "begin";
    EXPECT_THROW(record(), std::runtime_error);
    EXPECT_EQ(journal.take(), "pushed: end ");
    journal.failing = "end";
    EXPECT_THROW(record(), std::runtime_error);
    EXPECT_EQ(journal.take(), "pushed: begin A+ B+ C+ C- B- A- ");
    journal.failing.clear();
    record();
    journal.take();
    journal.failing = "A-";
    EXPECT_THROW(stack.undo(), std::runtime_error);
    EXPECT_EQ(journal.take(), "willUndo: begin C- B- B+ C+ end ");
    EXPECT_EQ(stack.undoCount(), 1u);
    EXPECT_EQ(stack.redoCount(), 0u);
}

TEST_F(StackTest, recorderSwallowsWhatItsCommandsThrow)
{
    journal.failing = "A+";
    {
        MacroCommandRecorder recorder(&score);
        push("A");
        recorder.commit();
    }
    EXPECT_TRUE(journal.alive.empty());
    EXPECT_FALSE(stack.undoAvailable());
    EXPECT_THROW(MacroCommandRecorder(nullptr), zarn::CoreException);
}

TEST_F(StackTest, macroDestroysItsCommandsInOrderAndRefusesNull)
{
    struct Dying : zarn::Command {
        Dying(std::string &text, char name) : _text(text), _name(name) { }
        ~Dying() override { _text += _name; }
        void redo() override { }
        void undo() override { }
        std::string &_text;
        char _name;
    };
    std::string dead;
    {
        MacroCommand macro(&score);
        macro.pushCommand(new Dying(dead, 'a'));
        macro.pushCommand(new Dying(dead, 'b'));
        macro.pushCommand(new Dying(dead, 'c'));
        EXPECT_THROW(macro.pushCommand(nullptr), zarn::CoreException);
        EXPECT_EQ(macro.commandCount(), 3u);
        EXPECT_EQ(macro.name() + macro.args(), QString());
    }
    EXPECT_EQ(dead, "abc");
}

} // namespace
