// SPDX-License-Identifier: MIT
#include "support/NativeDocument.h"
#include "support/SmallScore.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/commands/ZarnMacroCommandRecorder.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

/// Edits that stand on each other inside of a macro, where none has run yet when the next one is
/// asked for.
namespace {

using namespace zarn;

const RhythmValue eighth(RhythmValue::NoteValue::Eighth);

struct DependentEditsTest : testing::Test, SmallScore {
    CommandStack &stack = score.commandStack();

    std::string document() const { return test::writeNative(model); }
};

TEST_F(DependentEditsTest, aBeatIsMadeWrittenOnAndShapedInOneStep)
{
    const std::string before = document();
    stack.beginMacroCommand();
    EXPECT_TRUE(score.createBars(6, 1));
    EXPECT_TRUE(score.createBeat(at(6, 0), eighth));
    EXPECT_TRUE(score.setStringedNote(at(6, 0), 5, 7));
    EXPECT_TRUE(score.setBeatDynamic(from(6, 0, 6, 0), NoteDynamic::Value::FF));
    EXPECT_EQ(document(), before);
    stack.endMacroCommand(true);

    const Beat &made = beat(6, 0);
    ASSERT_EQ(made.noteCount(), 1u);
    EXPECT_EQ(made.notes()[0]->midi(), 83);
    EXPECT_EQ(made.dynamic(), NoteDynamic(NoteDynamic::Value::FF));
    const std::string after = document();
    for (int round = 0; round < 2; ++round) {
        stack.undo();
        EXPECT_EQ(document(), before);
        stack.redo();
        EXPECT_EQ(document(), after);
    }
    EXPECT_EQ(stack.undoCount(), 1u);
}

TEST_F(DependentEditsTest, aCommandWithoutItsPlaceTakesTheMacroBackAndSaysWhich)
{
    score.setMasterBarDoubleBar(1, true);
    score.setMasterBarDoubleBar(2, true);
    stack.undo();
    const std::string before = document();
    const auto record = [&](auto end) {
        EXPECT_TRUE(score.createBeat(at(5, 0), eighth));
        EXPECT_TRUE(score.setStringedNote(at(5, 0), 5, 7));
        EXPECT_TRUE(score.setStringedNote(at(5, 1), 5, 7));
        EXPECT_TRUE(score.removeBarRange(0, 3));
        end();
    };
    stack.beginMacroCommand();
    record([&] {
        try {
            stack.endMacroCommand(true);
            ADD_FAILURE() << "the macro was executed";
        } catch (const CoreException &error) {
            const std::string text = error.what();
            EXPECT_NE(text.find("SetStringedNote{StageIndex:Track:0, Staff:0, Bar:5, Voice:0, "
                                "Beat:1"),
                      std::string::npos)
                << text;
            EXPECT_NE(text.find("the score has no such place"), std::string::npos) << text;
        }
    });
    EXPECT_FALSE(stack.isMacroOpen());
    EXPECT_EQ(document(), before);
    EXPECT_EQ(stack.undoCount() + stack.redoCount(), 2u) << "what could be redone is still there";
    {
        MacroCommandRecorder recorder(&score);
        record([&] { recorder.commit(); });
    }
    EXPECT_EQ(document(), before);
    stack.redo();
    EXPECT_TRUE(model.masterTrack()->masterBar(2)->hasDoubleBar());
}

/// Values that no score can take are refused at once, in a macro too.
TEST_F(DependentEditsTest, valuesAreCheckedWhenTheyAreGiven)
{
    ScoreModelRange nowhere;
    const std::vector<std::function<bool()>> refused = {
        [&] { return score.createBars(90, 0); },
        [&] { return score.removeBarRange(91, 90); },
        [&] { return score.setClef(9, 0, 0, 0, ClefType::None); },
        [&] { return score.setClef(9, 0, 2, 1, ClefType::F4); },
        [&] {
            return score.setMasterTimeSignature(90, 90, {3, 5});
        },
        [&] { return score.setMasterBarFreeTime(91, 90, true); },
        [&] { return score.setBarRepeatEnd(90, 1); },
        [&] { return score.setBarDirection(DirectionMark::NoDirection, 90); },
        [&] { return score.setBarDirection(DirectionMark::Fine, -2); },
        [&] { return score.setBarDirections(-1, {}); },
        [&] { return score.insertTrack(9, nullptr); },
        [&] { return score.setTrackIcon(9, static_cast<ZarnIconID>(0)); },
        [&] {
            return score.setGuitarFullTuning(9, 0, GuitarTuning(std::vector<unsigned>(13, 40)));
        },
        [&] { return score.addTrackSound(9, std::shared_ptr<const Sound>()); },
        [&] { return score.createAudioTrack(9, nullptr); },
        [&] { return score.modifyTrackAutomations(9, {}, {nullptr}); },
        [&] { return score.modifyTrackAutomationBypass(9, Automation::Unknown, true); },
        [&] { return score.createBeat(at(90, -1), eighth); },
        [&] { return score.createBeat(at(90, 0, 0, 4), eighth); },
        [&] { return score.createBeat(at(90, 0), RhythmValue(eighth.getNoteValue(), 4)); },
        [&] { return score.removeBeats(nowhere); },
        [&] { return score.setBeatRhythm(nowhere, eighth); },
        [&] { return score.setBeatDynamic(nowhere, NoteDynamic::Value::P); },
        [&] { return score.setNoteRest(ScoreModelRange(at(90, 0, 0, 4))); },
        [&] { return score.setStringedNote(at(90, 0), -1, 0); },
        [&] { return score.setStringedNote(at(90, 0), 0, -1); },
        [&] { return score.setStringedNote(at(90, -1), 0, 0); },
        [&] { return score.setMIDINote(at(90, 0), 128); },
    };
    stack.beginMacroCommand();
    for (std::size_t i = 0; i < refused.size(); ++i)
        EXPECT_FALSE(refused[i]()) << "number " << i;
    stack.endMacroCommand(true);
    EXPECT_EQ(stack.undoArgList(), QStringList(QString())) << "a macro with nothing in it";
}

} // namespace
