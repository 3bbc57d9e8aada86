// SPDX-License-Identifier: MIT
#include "CommandRows.h"
#include "support/CommandLaw.h"
#include "support/EventMirror.h"
#include "support/ScoreDump.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

/// The laws of all commands, checked on a table of them: what undo and redo give back, to the byte;
/// what they announce; and what a listener that throws leaves behind.
namespace {

using namespace rich;

std::vector<CommandRow> allRows()
{
    std::vector<CommandRow> all;
    for (const CommandRowsOfArea &area : commandAreas()) {
        const auto rows = area.rows();
        all.insert(all.end(), rows.begin(), rows.end());
    }
    return all;
}

const std::vector<CommandRow> operations = allRows();

struct EveryCommandTest : testing::TestWithParam<CommandRow> {
    RichScore rich;
    CommandStack &stack = rich.score.commandStack();
    const CommandRow &operation = GetParam();

    bool act() { return operation.act(rich); }
};

TEST_P(EveryCommandTest, undoAndRedoGiveAllBackAndAnnounceWhatTheyDo)
{
    const std::string done = operation.events;
    const std::string undone = operation.undoEvents != nullptr ? operation.undoEvents : done;
    expectUndoable(
        rich.score, [this] { return act(); }, Announcement{done, undone});
}

/// In a macro, each `init` runs before the commands in front of it: the state to restore must not
/// be read there.
TEST_P(EveryCommandTest, inAMacroItRestoresWhatItFound)
{
    expectUndoable(rich.score, [this] {
        stack.beginMacroCommand();
        rich.score.setMasterBarDoubleBar(0, true);
        rich.score.setBeatRhythm(rich.from(0, 0, 0, 1), eighth);
        const bool isDone = act();
        stack.endMacroCommand(true);
        return isDone;
    });
}

/// What a command works on may be made by those in front of it in the same macro.
TEST_P(EveryCommandTest, aMacroMayMakeThePlaceFirst)
{
    Score &score = rich.score;
    std::vector<std::shared_ptr<Track>> tracks;
    for (const auto &track : rich.model.tracks())
        tracks.push_back(std::make_shared<Track>(*track));
    for (unsigned i = 2; i > 0; --i) {
        ASSERT_TRUE(score.removeAudioTrack(i - 1));
        ASSERT_TRUE(score.removeTrack(i - 1));
    }
    ASSERT_TRUE(score.removeBarRange(0, 5));
    const auto first = tempo(0, 100);
    const auto marked = tempo(2, 120);
    expectUndoable(score, [&] {
        stack.beginMacroCommand();
        bool isDone = score.createBars(0, 6);
        for (unsigned i = 0; i < 2; ++i) {
            isDone = isDone && score.insertTrack(i, tracks[i])
                && score.createAudioTrack(i, std::make_shared<AudioTrack>("Take"));
        }
        isDone = isDone && score.modifyMasterTrackAutomations({}, {&first, &marked}) && act();
        stack.endMacroCommand(true);
        return isDone;
    });
}

TEST_P(EveryCommandTest, aListenerThatThrowsFindsTheScoreAsItWas)
{
    expectTakenBackWhenAListenerThrows(rich.score, [this] { return act(); });
}

INSTANTIATE_TEST_SUITE_P(All, EveryCommandTest, testing::ValuesIn(operations),
                         [](const auto &info) { return info.param.name; });

/// The table of the events says of each class whether anything sends it.
TEST(EventTableTest, saysWhatIsSent)
{
    std::string events = "CommandPushed CommandExecuted CommandWillUndo CommandWillRedo "
                         "BeginMacro EndMacro ScoreCursorMoved ScoreChanged ";
    for (const CommandRow &operation : operations) {
        events += operation.events;
        events += operation.undoEvents != nullptr ? operation.undoEvents : "";
    }
    std::set<std::string> names;
    std::istringstream words(events);
    for (std::string word; words >> word;)
        names.insert(word.substr(0, word.find('(')));
    evt::forEachEvent(evt::eventTable, [&](const auto &row) {
        EXPECT_EQ(row.isSent, names.count(row.name) != 0) << row.name;
    });
}

/// Inside a macro a command's place may be gone when it runs: it raises, and what ran before it in
/// the macro is taken back.
TEST(GonePlaceTest, takesTheWholeMacroBack)
{
    RichScore rich;
    const std::string before = dump(rich.score);
    EventMirror mirror(rich.score);
    for (const CommandRow &operation : operations) {
        SCOPED_TRACE(operation.name);
        CommandStack &stack = rich.score.commandStack();
        stack.beginMacroCommand();
        rich.score.removeTrack(1);
        rich.score.removeTrack(0);
        rich.score.removeAudioTrack(1);
        rich.score.removeAudioTrack(0);
        rich.score.removeBarRange(0, 5);
        rich.score.removeMasterReverb();
        ASSERT_TRUE(operation.act(rich));
        bool isRaised = false;
        try {
            stack.endMacroCommand(true);
        } catch (const CoreException &) {
            isRaised = true;
        }
        EXPECT_EQ(isRaised, !operation.needsNoPlace);
        if (!isRaised)
            stack.undo();
        EXPECT_EQ(dump(rich.score), before);
        ASSERT_EQ(mirror.fault(), "");
    }
}

} // namespace
