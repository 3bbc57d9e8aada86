// SPDX-License-Identifier: MIT
// The command stack against QUndoStack: 69 commands kept, a command that counts, the stack full.
#include "RatioReport.h"

#include <ZarnCore/commands/ZarnCommand.h>
#include <ZarnCore/commands/ZarnCommandStack.h>
#include <ZarnCore/commands/ZarnTransaction.h>
#include <ZarnCore/events/ZarnCommandEvents.h>
#include <ZarnCore/score/ZarnScore.h>

#include <QUndoStack>

#include <deque>
#include <functional>
#include <malloc.h>
#include <memory>
#include <string>
#include <utility>

namespace {

constexpr int keptCommands = 69;

struct QtCount : QUndoCommand {
    explicit QtCount(long &value) : QUndoCommand(QStringLiteral("Count")), _value(value) { }
    void redo() override { ++_value; }
    void undo() override { --_value; }
    long &_value;
};

struct Count : zarn::Command {
    explicit Count(long &value) : _value(value) { setName(QStringLiteral("Count")); }
    void redo() override { ++_value; }
    void undo() override { --_value; }
    long &_value;
};

/// What QUndoStack does alone.
struct BareQtStack {
    BareQtStack()
    {
        stack.setUndoLimit(keptCommands);
        for (int i = 0; i < keptCommands; ++i)
            push();
    }
    void push() { stack.push(new QtCount(value)); }
    void undo() { stack.undo(); }
    void redo() { stack.redo(); }
    void macro(int count)
    {
        stack.beginMacro(QStringLiteral("Macro"));
        for (int i = 0; i < count; ++i)
            push();
        stack.endMacro();
    }
    long value = 0;
    QUndoStack stack;
};

class StackSignals : public QObject {
    Q_OBJECT
Q_SIGNALS:
    void announced(const QString &name);
    void executed();
};

/// The reference: QUndoStack with what a score's stack does besides, a cursor kept per command and
/// two events per step.
struct QtStack {
    explicit QtStack(bool isHeard = false)
    {
        if (isHeard) {
            QObject::connect(&events, &StackSignals::announced, [this] { ++heard; });
            QObject::connect(&events, &StackSignals::executed, [this] { ++heard; });
        }
        bare.stack.clear();
        for (int i = 0; i < keptCommands; ++i)
            push();
    }
    void push()
    {
        announce();
        if (cursors.size() == keptCommands)
            cursors.pop_front();
        cursors.push_back(cursor);
        bare.push();
        Q_EMIT events.executed();
    }
    void undo()
    {
        announce();
        bare.undo();
        cursor = cursors.back();
        cursors.pop_back();
        Q_EMIT events.executed();
    }
    void redo()
    {
        announce();
        cursors.push_back(cursor);
        bare.redo();
        Q_EMIT events.executed();
    }
    void macro(int count)
    {
        announce();
        if (cursors.size() == keptCommands)
            cursors.pop_front();
        cursors.push_back(cursor);
        bare.macro(count);
        Q_EMIT events.executed();
    }
    void announce() { Q_EMIT events.announced(name); }

    BareQtStack bare;
    long &value = bare.value;
    long heard = 0;
    QString name = QStringLiteral("Count");
    StackSignals events;
    zarn::ScoreModelIndex cursor;
    std::deque<zarn::ScoreModelIndex> cursors;
};

/// Ours: the stack of a score, with its cursor and its events. With `isHeard`, someone listens.
struct OurStack {
    explicit OurStack(bool isHeard = false)
    {
        if (isHeard) {
            using namespace zarn::evt;
            score.connect<CommandPushed>(this, [this](const CommandPushed &) { ++heard; });
            score.connect<CommandExecuted>(this, [this](const CommandExecuted &) { ++heard; });
        }
        for (int i = 0; i < keptCommands; ++i)
            push();
    }
    void push() { stack.pushCommand(new Count(value)); }
    void undo() { stack.undo(); }
    void redo() { stack.redo(); }
    void macro(int count)
    {
        stack.beginMacroCommand();
        for (int i = 0; i < count; ++i)
            push();
        stack.endMacroCommand(true);
    }
    long value = 0;
    long heard = 0;
    zarn::Score score;
    zarn::CommandStack &stack = score.commandStack();
};

/// Repeats an action on a full stack.
template <class Stack, class Action>
auto repeat(Action action, std::function<Stack *()> make)
{
    return [action, make](benchmark::State &state) {
        const std::unique_ptr<Stack> stack(make());
        for (auto _ : state)
            action(*stack);
        benchmark::DoNotOptimize(stack->value);
    };
}

/// Ours against both references.
template <class Action>
void compare(bench::RatioReport &report, const std::string &name, double target, double bareTarget,
             Action action)
{
    report.compare(name, target, repeat<QtStack>(action, [] { return new QtStack; }),
                   repeat<OurStack>(action, [] { return new OurStack; }));
    report.compare(name + " / bare QUndoStack", bareTarget,
                   repeat<BareQtStack>(action, [] { return new BareQtStack; }),
                   repeat<OurStack>(action, [] { return new OurStack; }));
}

/// A thousand small commands of a score, one by one or as one step.
class SmallEdits {
public:
    SmallEdits() { _score.createBars(0, bars); }

    void oneByOne()
    {
        for (int i = 0; i < count; ++i)
            _score.setMasterBarDoubleBar(static_cast<unsigned>(i) % bars, i % 3 == 0);
    }

    void inAMacro()
    {
        _score.commandStack().beginMacroCommand();
        oneByOne();
        _score.commandStack().endMacroCommand(true);
    }

    void inATransaction()
    {
        zarn::Transaction transaction(&_score, QStringLiteral("Edits"));
        oneByOne();
        transaction.commit();
    }

private:
    static constexpr int count = 1000;
    static constexpr unsigned bars = 100;

    zarn::Score _score;
};

bench::RatioReport::Body editing(void (SmallEdits::*edit)())
{
    return [edit](benchmark::State &state) {
        SmallEdits edits;
        for (auto _ : state)
            (edits.*edit)();
    };
}

/// Bytes in use before and after a hundred thousand pushes past a full ring.
std::pair<double, double> heapOfPushes()
{
    OurStack stack;
    for (int i = 0; i < 1000; ++i)
        stack.push();
    const auto before = mallinfo2().uordblks;
    for (int i = 0; i < 100000; ++i)
        stack.push();
    return {static_cast<double>(before), static_cast<double>(mallinfo2().uordblks)};
}

} // namespace

int main(int argc, char **argv)
{
    const auto push = [](auto &stack) { stack.push(); };
    const auto macroOf = [](int count) {
        return [count](auto &stack) {
            stack.macro(count);
            stack.undo();
            stack.redo();
        };
    };
    bench::RatioReport report;
    compare(report, "push", 0.5, 0.45, push);
    report.compare("push, two listeners", 0.5,
                   repeat<QtStack>(push, [] { return new QtStack(true); }),
                   repeat<OurStack>(push, [] { return new OurStack(true); }));
    compare(report, "push and undo", 0.5, 0.48, [](auto &stack) {
        stack.push();
        stack.undo();
    });
    compare(report, "undo and redo", 0.7, 0.65, [](auto &stack) {
        stack.undo();
        stack.redo();
    });
    compare(report, "macro of 1,000 done, undone, redone", 0.65, 0.65, macroOf(1000));
    compare(report, "macro of 10,000 done, undone, redone", 0.65, 0.65, macroOf(10000));
    report.compare("macro of 10,000 / macro of 1,000", 11,
                   repeat<OurStack>(macroOf(1000), [] { return new OurStack; }),
                   repeat<OurStack>(macroOf(10000), [] { return new OurStack; }));
    report.compare("1,000 commands in a macro / one by one", 1.2, editing(&SmallEdits::oneByOne),
                   editing(&SmallEdits::inAMacro));
    report.compare("1,000 commands in a transaction / one by one", 1.2,
                   editing(&SmallEdits::oneByOne), editing(&SmallEdits::inATransaction));
    report.compareValues("heap after 100,000 pushes / before", 1.0, heapOfPushes);
    return report.run(argc, argv);
}

#include "UndoBenchmark.moc"
