// SPDX-License-Identifier: MIT
#include "StackFixture.h"

#include <deque>
#include <functional>
#include <random>
#include <set>
#include <vector>

namespace {

/// What a command stack should hold, kept without a ring: the commands that can be reached by undo,
/// oldest first, and the place of the newest one.
struct Reference {
    int size = 69;
    int top = -1;
    std::deque<std::string> undo;
    std::vector<std::string> redo;
    std::set<int> ghosts;  ///< slots left occupied without a command
    std::size_t state = 0; ///< stands for the commands that are done, whatever their order
    std::size_t saved = 0; ///< the state that was saved

    bool undoAvailable() const { return top >= 0 && !undo.empty(); }

    void toggle(const std::string &name) { state ^= std::hash<std::string>()(name); }
    void store(const std::string &name)
    {
        if (size == 0)
            return;
        top = (top + 1) % size;
        ghosts.erase(top);
        undo.push_back(name);
        if (static_cast<int>(undo.size()) > size)
            undo.pop_front();
    }
    void push(const std::string &name)
    {
        redo.clear();
        store(name);
        toggle(name);
    }
    void stepBack()
    {
        if (!undoAvailable() || static_cast<int>(redo.size()) >= size)
            return;
        redo.push_back(undo.back());
        toggle(undo.back());
        undo.pop_back();
        top = top > 0 ? top - 1 : size - 1;
    }
    void stepForward()
    {
        if (redo.empty())
            return;
        store(redo.back());
        toggle(redo.back());
        redo.pop_back();
    }
    void clearUndo()
    {
        if (!undoAvailable())
            return;
        while (static_cast<int>(undo.size()) > 0 && top >= 0) {
            undo.pop_back();
            --top;
        }
        top = -1;
    }
    void resize(int count)
    {
        for (int i = 0; i < static_cast<int>(undo.size()); ++i)
            ghosts.insert((top - i + 2 * size) % size);
        ghosts.erase(ghosts.lower_bound(count), ghosts.end());
        undo.clear();
        redo.clear();
        top = -1;
        size = count;
    }
    std::string undoNames() const
    {
        std::string names;
        if (top >= 0) {
            for (auto name = undo.rbegin(); name != undo.rend(); ++name)
                names += (names.empty() ? "" : " ") + *name;
        }
        return names;
    }
};

TEST_F(StackTest, randomStepsAgreeWithAStackWithoutARing)
{
    std::mt19937 random(2024);
    const auto chance = [&](unsigned in) { return random() % in == 0; };
    Reference reference;
    for (int round = 0; round < 40000; ++round) {
        const std::string name = std::to_string(round);
        const bool fails = chance(9);
        switch (random() % 12) {
        case 0:
        case 1:
        case 2:
        case 3:
        case 4:
            journal.failing = fails ? name + "+" : "";
            if (fails) {
                EXPECT_THROW(push(name), std::runtime_error);
            } else {
                push(name);
                reference.push(name);
            }
            break;
        case 5:
        case 6:
        case 7:
            journal.failing = fails && reference.undoAvailable() ? reference.undo.back() + "-" : "";
            try {
                stack.undo();
                reference.stepBack();
            } catch (const std::runtime_error &) {
                EXPECT_TRUE(fails);
            }
            break;
        case 8:
        case 9:
            journal.failing = fails && !reference.redo.empty() ? reference.redo.back() + "+" : "";
            try {
                stack.redo();
                reference.stepForward();
            } catch (const std::runtime_error &) {
                EXPECT_TRUE(fails);
            }
            break;
        case 10:
            if (chance(3)) {
                stack.clear();
                reference.redo.clear();
                reference.clearUndo();
            } else if (chance(2)) {
                stack.clearUndoStack();
                reference.clearUndo();
            } else if (chance(2)) {
                stack.clearRedoStack();
                reference.redo.clear();
            }
            if (chance(2)) {
                stack.setClean();
                reference.saved = reference.state;
            }
            break;
        default:
            if (chance(4)) {
                const auto count = static_cast<int>(random() % 9);
                stack.setMaximumUndo(static_cast<unsigned>(count));
                reference.resize(count);
            }
        }
        std::multiset<std::string> alive(reference.undo.begin(), reference.undo.end());
        alive.insert(reference.redo.begin(), reference.redo.end());
        ASSERT_EQ(journal.alive, alive) << "round " << round;
        ASSERT_EQ(undoNames(), reference.undoNames()) << "round " << round;
        ASSERT_EQ(stack.undoAvailable(), reference.undoAvailable()) << "round " << round;
        ASSERT_EQ(stack.undoCount(), reference.undo.size() + reference.ghosts.size())
            << "round " << round;
        ASSERT_EQ(stack.redoCount(), reference.redo.size()) << "round " << round;
        ASSERT_EQ(stack.isClean(), reference.state == reference.saved) << "round " << round;
        ASSERT_TRUE(isFree());
        journal.take();
    }
}

} // namespace
