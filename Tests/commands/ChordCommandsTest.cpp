// SPDX-License-Identifier: MIT
#include "support/CommandLaw.h"
#include "support/SmallScore.h"

#include <ZarnCore/model/ZarnBeatAttribute.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace zarn;

ChordMark chord(const char *symbol, std::vector<std::int8_t> frets = {})
{
    if (frets.empty())
        return {symbol, nullptr};
    ChordDiagram diagram;
    diagram.name = symbol;
    diagram.frets = std::move(frets);
    return {symbol, std::make_shared<const ChordDiagram>(diagram)};
}

struct ChordCommandsTest : testing::Test, SmallScore {
    const Staff &staff() { return *model.track(0)->staff(0); }
    const std::vector<std::string> &symbols() { return staff().chordWorkingSet(); }
};

TEST_F(ChordCommandsTest, undoTakesOutOfTheSetsWhatItPutIn)
{
    ASSERT_TRUE(score.setChord(at(0, 0), chord("C")));
    ASSERT_TRUE(score.setChord(at(0, 1), chord("C", {-1, 3, 2, 0, 1, 0})));
    ASSERT_TRUE(score.setChord(at(0, 2), chord("C", {-1, 3, 2, 0, 1, 0})));
    EXPECT_EQ(symbols(), std::vector<std::string>{"C"});
    EXPECT_EQ(staff().diagramWorkingSet().size(), 1U);
    score.commandStack().undo();
    EXPECT_EQ(staff().diagramWorkingSet().size(), 1U);
    score.commandStack().undo();
    EXPECT_TRUE(staff().diagramWorkingSet().empty());
    EXPECT_EQ(symbols(), std::vector<std::string>{"C"});
    ASSERT_TRUE(score.unsetChord(everything(0, 5)));
    EXPECT_EQ(symbols(), std::vector<std::string>{"C"});
    EXPECT_TRUE(beat(0, 0).chord().isEmpty());
}

/// A diagram belongs on the staves that have its strings alone; so do the sets.
TEST_F(ChordCommandsTest, aChordForAllTracksJoinsTheSetsOfThoseThatTakeIt)
{
    ASSERT_TRUE(score.setBeatAttribute(everything(0, 1), BeatAttribute::Chord,
                                       chord("G", {3, 2, 0, 0, 0, 3})));
    EXPECT_EQ(symbols(), std::vector<std::string>{"G"});
    EXPECT_TRUE(model.track(1)->staff(0)->chordWorkingSet().empty());
    ASSERT_TRUE(score.setBeatAttribute(everything(0, 1), BeatAttribute::Chord, chord("D")));
    EXPECT_EQ(symbols(), (std::vector<std::string>{"G", "D"}));
    EXPECT_EQ(model.track(1)->staff(0)->chordWorkingSet(), std::vector<std::string>{"D"});
}

} // namespace
