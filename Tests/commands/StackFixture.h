// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnCommandStack.h>
#include <ZarnCore/events/ZarnCommandEvents.h>
#include <ZarnCore/score/ZarnScore.h>

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <stdexcept>
#include <string>

/// What the commands of a test did, in order, and which of them are alive.
struct Journal {
    std::string text;
    std::multiset<std::string> alive;
    std::string failing; ///< "A+" makes the redo of A throw, "A-" its undo

    void add(const std::string &entry)
    {
        if (entry == failing)
            throw std::runtime_error(entry);
        text += entry + " ";
    }
    std::string take() { return std::exchange(text, std::string()); }
};

/// Writes "A+" into the journal when it is done, "A-" when it is undone.
class JournalCommand : public zarn::Command {
public:
    JournalCommand(Journal &journal, const std::string &name) : _journal(journal), _name(name)
    {
        setName(QString::fromStdString(name));
        addArg(QStringLiteral("Name"), QString::fromStdString(name));
        _journal.alive.insert(_name);
    }
    ~JournalCommand() override { _journal.alive.erase(_journal.alive.find(_name)); }
    void redo() override { _journal.add(_name + "+"); }
    void undo() override { _journal.add(_name + "-"); }

private:
    Journal &_journal;
    std::string _name;
};

/// A score whose command events are written into the journal too.
struct StackTest : testing::Test {
    Journal journal;
    zarn::Score score;
    zarn::CommandStack &stack = score.commandStack();

    void push(const std::string &name) { stack.pushCommand(new JournalCommand(journal, name)); }

    void listen()
    {
        using namespace zarn::evt;
        score.connect<CommandPushed>(
            this, [this](const CommandPushed &e) { note("pushed:" + e.name().toStdString()); });
        score.connect<CommandWillUndo>(
            this, [this](const CommandWillUndo &e) { note("willUndo:" + e.name().toStdString()); });
        score.connect<CommandWillRedo>(
            this, [this](const CommandWillRedo &e) { note("willRedo:" + e.name().toStdString()); });
        score.connect<CommandExecuted>(this, [this](const CommandExecuted &) { note("executed"); });
        score.connect<BeginMacro>(this, [this](const BeginMacro &) { note("begin"); });
        score.connect<EndMacro>(this, [this](const EndMacro &) { note("end"); });
    }

    void note(const std::string &entry) { journal.add(entry); }

    std::string undoNames() const
    {
        return stack.undoCommandList().join(QLatin1Char(' ')).toStdString();
    }
    std::string redoNames() const
    {
        return stack.redoCommandList().join(QLatin1Char(' ')).toStdString();
    }
    bool isFree()
    {
        const bool locked = stack.tryLock();
        if (locked)
            stack.unlock();
        return locked;
    }
};
