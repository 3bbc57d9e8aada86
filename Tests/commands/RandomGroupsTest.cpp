// SPDX-License-Identifier: MIT
#include "StackFixture.h"

#include <ZarnCore/commands/ZarnMacroCommandRecorder.h>
#include <ZarnCore/commands/ZarnTransaction.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

using State = std::vector<std::string>;

/// Writes its name behind the others, or throws.
class Append : public zarn::Command {
public:
    Append(State &state, std::string name, bool fails)
        : _state(state), _name(std::move(name)), _fails(fails)
    {
    }
    void redo() override
    {
        if (_fails)
            throw std::runtime_error(_name);
        _state.push_back(_name);
    }
    void undo() override
    {
        ASSERT_FALSE(_state.empty());
        ASSERT_EQ(_state.back(), _name);
        _state.pop_back();
    }

private:
    State &_state;
    std::string _name;
    bool _fails;
};

/// Macros and transactions by chance, inside of each other, committed, abandoned and failing, and
/// beside them what the state and the history must be, kept in the plainest way.
struct RandomGroupsTest : StackTest {
    /// What a group has taken in: names, "!" for one that fails.
    struct Group {
        bool waits = false;
        unsigned commands = 0; ///< of a transaction, that have run
        State collected;
    };

    std::mt19937 random{77};
    State state;
    State expected;
    std::vector<State> before; ///< the state before each step that can be undone
    std::vector<State> undone; ///< the state after each step that can be redone
    std::vector<Group> open;
    unsigned pending = 0; ///< announcements that wait for their end
    int number = 0;

    bool chance(unsigned percent) { return random() % 100 < percent; }

    void listenForSteps()
    {
        using namespace zarn::evt;
        const auto announced = [this](const auto &) { pending = 1; };
        score.connect<CommandPushed>(this, announced);
        score.connect<CommandWillUndo>(this, announced);
        score.connect<CommandWillRedo>(this, announced);
        score.connect<CommandExecuted>(this, [this](const CommandExecuted &) {
            EXPECT_EQ(pending, 1u) << "one announcement for one end";
            EXPECT_EQ(state, expected);
            pending = 0;
        });
    }

    void newStep(State from)
    {
        before.push_back(std::move(from));
        undone.clear();
    }

    /// Some commands and groups; what is committed joins the group around it.
    void fill(unsigned depth)
    {
        for (unsigned left = random() % 5; left > 0; --left) {
            if (depth < 4 && chance(30))
                chance(50) ? macro(depth + 1) : transaction(depth + 1);
            else
                append();
        }
    }

    void append()
    {
        const bool fails = chance(10);
        const std::string name = std::to_string(number++);
        const State from = expected;
        const bool waits = !open.empty() && open.back().waits;
        if (waits)
            open.back().collected.push_back(fails ? "!" : name);
        else if (!fails)
            expected.push_back(name);
        if (!waits && fails) {
            EXPECT_THROW(stack.pushCommand(new Append(state, name, true)), std::runtime_error);
            return;
        }
        stack.pushCommand(new Append(state, name, fails));
        if (open.empty())
            newStep(from);
        else if (!waits)
            ++open.back().commands;
    }

    void macro(unsigned depth)
    {
        stack.beginMacroCommand();
        EXPECT_TRUE(stack.isMacroOpen());
        open.push_back({true, 0, {}});
        fill(depth);
        const State collected = open.back().collected;
        open.pop_back();
        const bool isCommitted = chance(75);
        const bool waits = !open.empty() && open.back().waits;
        const bool fails = !waits && std::count(collected.begin(), collected.end(), "!") != 0;
        const State from = expected;
        if (isCommitted && waits)
            open.back().collected.insert(open.back().collected.end(), collected.begin(),
                                         collected.end());
        else if (isCommitted && !fails)
            expected.insert(expected.end(), collected.begin(), collected.end());
        if (isCommitted && fails) {
            EXPECT_THROW(stack.endMacroCommand(true), std::runtime_error);
            return;
        }
        stack.endMacroCommand(isCommitted);
        if (isCommitted && open.empty())
            newStep(from);
        else if (isCommitted && !waits)
            ++open.back().commands;
    }

    void transaction(unsigned depth)
    {
        const State from = expected;
        const bool waits = !open.empty() && open.back().waits;
        zarn::Transaction transaction(&score, QString::number(depth));
        open.push_back({waits, 0, {}});
        fill(depth);
        const Group group = open.back();
        open.pop_back();
        if (!chance(75)) {
            expected = from;
            return;
        }
        if (waits)
            open.back().collected.insert(open.back().collected.end(), group.collected.begin(),
                                         group.collected.end());
        transaction.commit();
        if (waits || group.commands == 0)
            return;
        if (open.empty())
            newStep(from);
        else
            ++open.back().commands;
    }

    void stepBack()
    {
        if (before.empty())
            return;
        undone.push_back(expected);
        expected = before.back();
        before.pop_back();
        stack.undo();
    }

    void stepForth()
    {
        if (undone.empty())
            return;
        before.push_back(expected);
        expected = undone.back();
        undone.pop_back();
        stack.redo();
    }
};

TEST_F(RandomGroupsTest, groupsDoWhatTheirCommandsDoOrNothing)
{
    listenForSteps();
    stack.setMaximumUndo(10000);
    for (int round = 0; round < 6000; ++round) {
        switch (random() % 8) {
        case 0:
        case 1:
            macro(1);
            break;
        case 2:
        case 3:
            transaction(1);
            break;
        case 4:
            append();
            break;
        case 5:
            stepForth();
            break;
        default:
            stepBack();
        }
        ASSERT_EQ(state, expected) << "round " << round;
        ASSERT_EQ(stack.undoCount(), before.size()) << "round " << round;
        ASSERT_EQ(stack.redoCount(), undone.size()) << "round " << round;
        ASSERT_FALSE(stack.isMacroOpen() || stack.isTransactionOpen()) << "round " << round;
        ASSERT_TRUE(isFree());
    }
    EXPECT_GT(number, 10000);
    EXPECT_GT(before.size(), 5u);
    while (!before.empty())
        stepBack();
    EXPECT_EQ(state, State());
}

} // namespace
