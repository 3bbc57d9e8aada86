// SPDX-License-Identifier: MIT
#include "MarkCommands.h"
#include "support/CommandLaw.h"
#include "support/ScoreDump.h"
#include "support/SmallScore.h"

#include <gtest/gtest.h>

using namespace zarn;

namespace {

struct MarkCommandsTest : testing::Test {
    SmallScore small;
    Score &score = small.score;

    Beat &beat(unsigned bar, unsigned number) { return small.beat(bar, number); }
    ScoreModelRange whole() { return small.from(0, 0, 1, 3); }
};

} // namespace

TEST_F(MarkCommandsTest, theCommandOfAnAttributeDoesWhatTheGeneralOneDoes)
{
    for (const MarkCommand &command : markCommands()) {
        SCOPED_TRACE(command.name);
        SmallScore byTable;
        const std::string before = dump(score);
        EXPECT_TRUE(command.act(score, whole()));
        EXPECT_TRUE(command.actByTable(byTable.score, byTable.from(0, 0, 1, 3)));
        EXPECT_EQ(dump(score), dump(byTable.score));
        EXPECT_NE(dump(score), before);
        score.commandStack().undo();
        EXPECT_EQ(dump(score), before);
    }
}

/// Heads are no marks of notes, and come back with them.
TEST_F(MarkCommandsTest, headsComeBackToo)
{
    const std::string before = dump(score);
    EXPECT_TRUE(score.setNoteAttribute(whole(), NoteAttribute::Head, NoteHead::Diamond));
    const std::string headed = dump(score);
    EXPECT_TRUE(score.setNoteAttribute(whole(), NoteAttribute::HeadFill, HeadFill::Open));
    const std::string open = dump(score);
    EXPECT_NE(headed, before);
    EXPECT_NE(open, headed);
    score.commandStack().undo();
    EXPECT_EQ(dump(score), headed);
    score.commandStack().undo();
    EXPECT_EQ(dump(score), before);
    score.commandStack().redo();
    score.commandStack().redo();
    EXPECT_EQ(dump(score), open);
    constexpr auto none = static_cast<NoteHead>(5);
    EXPECT_FALSE(score.setNoteAttribute(whole(), NoteAttribute::Head, none));
}

/// The cursor on a string means one note, a selection all; elsewhere a place without a note means
/// the whole beat.
TEST_F(MarkCommandsTest, onePlaceIsOneNoteAndASelectionIsAll)
{
    const auto &chord = beat(0, 1).notes(); // on strings 1 and 2
    EXPECT_TRUE(score.setNoteVelocity(ScoreModelRange(small.onString(0, 1, 2)), 50));
    EXPECT_EQ(chord[0]->velocity(), 0U);
    EXPECT_EQ(chord[1]->velocity(), 50U);
    EXPECT_FALSE(score.setNoteVelocity(ScoreModelRange(small.onString(0, 1, 0)), 60));
    EXPECT_TRUE(score.setNoteVelocity(ScoreModelRange(small.onString(0, 0, 0)), 60));
    EXPECT_EQ(beat(0, 0).notes()[0]->velocity(), 60U);
    EXPECT_TRUE(score.setNoteVelocity(small.from(0, 1, 0, 1), 70));
    EXPECT_EQ(chord[0]->velocity(), 70U);
    EXPECT_TRUE(score.setNoteVelocity(
        ScoreModelRange(small.onString(0, 1, 0), SelectionMode::MultiSelection), 80));
    EXPECT_EQ(chord[0]->velocity(), 80U);
    EXPECT_EQ(chord[1]->velocity(), 80U);

    Beat &whole = *small.model.track(1)->bar(0)->voice(0)->beat(0);
    whole.addNote(std::make_shared<Note>(64));
    EXPECT_TRUE(score.setNoteVelocity(ScoreModelRange(small.at(0, 0, 1)), 90));
    EXPECT_EQ(whole.notes()[1]->velocity(), 90U);
    auto named = small.at(0, 0, 1);
    named.setNoteMidi(60);
    EXPECT_TRUE(score.setNoteVelocity(ScoreModelRange(named), 91));
    EXPECT_EQ(whole.notes()[0]->velocity(), 91U);
    EXPECT_EQ(whole.notes()[1]->velocity(), 90U);
}

/// Staves and beats that cannot have an attribute keep a selection from nothing.
TEST_F(MarkCommandsTest, whatDoesNotTakeAnAttributeIsPassedOver)
{
    EXPECT_TRUE(score.setStringedNotePalmMute(small.everything(0, 4), true));
    EXPECT_TRUE(beat(0, 0).notes()[0]->isPalmMuted());
    EXPECT_FALSE(small.model.track(1)->bar(0)->voice(0)->beat(0)->notes()[0]->isPalmMuted());
    EXPECT_TRUE(score.setBrush(whole(), Direction::Down));
    EXPECT_EQ(beat(0, 1).brush().direction, Direction::Down);
    EXPECT_EQ(beat(0, 0).brush().direction, Direction::None);
    beat(0, 0).setRhythmValue(RhythmValue(RhythmValue::NoteValue::ThirtySecond));
    EXPECT_TRUE(score.setBeatTremolo(whole(), 3));
    EXPECT_EQ(beat(0, 0).tremolo(), 0U);
    EXPECT_EQ(beat(0, 2).tremolo(), 0U); // a rest
    EXPECT_EQ(beat(0, 3).tremolo(), 3U);
}

/// Undo of a mixed selection gives each node back its own, exclusions and rare values included.
TEST_F(MarkCommandsTest, undoGivesEachNodeItsOwnBack)
{
    const auto law = [this](const char *name, const std::function<bool()> &act) {
        SCOPED_TRACE(name);
        expectUndoable(score, act); // leaves it undone
        score.commandStack().redo();
    };
    beat(0, 1).setArpeggio({Direction::Up, 480, StrumAnchor::EndsOnBeat});
    beat(1, 1).setBrush({Direction::Down, 90, StrumAnchor::StartsOnBeat});
    beat(0, 3).notes()[0]->setLeftHandTapped(true);
    beat(0, 0).notes()[0]->setTrill({2, Trill::Speed::Sixteenth});
    beat(1, 0).notes()[0]->setBend(Bend::of(BendType::PreBend));
    beat(1, 0).notes()[0]->setLetRing(true);
    law("pick strokes", [&] { return score.setBeatPickStroke(whole(), Direction::Down); });
    EXPECT_EQ(beat(0, 1).arpeggio(), Strum());
    EXPECT_FALSE(beat(0, 1).hasDetails());
    EXPECT_FALSE(beat(0, 3).notes()[0]->isLeftHandTapped());
    law("tremolo", [&] { return score.setBeatTremolo(whole(), 2); });
    EXPECT_EQ(beat(0, 0).notes()[0]->trill(), Trill());
    law("dead notes", [&] { return score.setStringedNoteDead(whole(), true); });
    EXPECT_FALSE(beat(1, 0).notes()[0]->hasDetails());
    EXPECT_FALSE(beat(1, 0).notes()[0]->letsRing());
}

TEST_F(MarkCommandsTest, aSwitchTurnsAllOnThenAllOff)
{
    beat(0, 1).setCue(true);
    EXPECT_TRUE(score.switchBeatAttribute(whole(), BeatAttribute::Cue));
    EXPECT_TRUE(beat(0, 0).isCue() && beat(0, 1).isCue());
    EXPECT_TRUE(score.switchBeatAttribute(whole(), BeatAttribute::Cue));
    EXPECT_FALSE(beat(0, 0).isCue() || beat(0, 1).isCue());
    score.commandStack().undo();
    score.commandStack().undo();
    EXPECT_TRUE(!beat(0, 0).isCue() && beat(0, 1).isCue());
}

TEST_F(MarkCommandsTest, stepsGoToTheEndsOfTheOrder)
{
    const auto step = [this](BeatAttribute id, int steps) {
        return score.incrementBeatSecondaryAttribute(whole(), id, steps);
    };
    beat(0, 0).setDynamic(NoteDynamic::Value::FFFFFF);
    beat(0, 1).setDynamic(NoteDynamic::Value::P);
    EXPECT_TRUE(step(BeatAttribute::Dynamic, 3));
    EXPECT_EQ(beat(0, 0).dynamic(), NoteDynamic::Value::FFFFFFF);
    EXPECT_EQ(beat(0, 1).dynamic(), NoteDynamic::Value::F);
    EXPECT_EQ(beat(0, 2).dynamic(), NoteDynamic::Value::MF);
    beat(0, 1).setArpeggio({Direction::Up, 0, {}});
    EXPECT_TRUE(step(BeatAttribute::Arpeggio, 2));
    EXPECT_EQ(beat(0, 1).arpeggio().length, 960U);
    EXPECT_TRUE(step(BeatAttribute::Arpeggio, -2));
    EXPECT_EQ(beat(0, 1).arpeggio().length, 0U);
    beat(0, 0).setTremolo(4);
    EXPECT_FALSE(step(BeatAttribute::Tremolo, 1));
    EXPECT_TRUE(step(BeatAttribute::Tremolo, -9));
    EXPECT_EQ(beat(0, 0).tremolo(), 1U);
    beat(0, 0).setOttavia(Ottavia::_8va);
    EXPECT_TRUE(step(BeatAttribute::Ottavia, -1));
    EXPECT_EQ(beat(0, 0).ottavia(), Ottavia::None);
    EXPECT_FALSE(step(BeatAttribute::Ottavia, 1));
}

/// A bend that goes on needs one to go on from; a natural harmonic a fret where one speaks.
TEST_F(MarkCommandsTest, stringsTakeWhatTheirNotesAllow)
{
    const ScoreModelRange held = small.from(1, 0, 1, 0); // tied to the last beat of bar 0
    EXPECT_FALSE(score.setStringedNoteBend(held, Bend::of(BendType::Release)));
    EXPECT_TRUE(score.setStringedNoteBend(small.from(0, 3, 0, 3), Bend::of(BendType::Bend)));
    EXPECT_TRUE(score.setStringedNoteBend(held, Bend::of(BendType::Release)));
    beat(0, 0).notes()[0]->setFret(7);
    EXPECT_TRUE(score.setStringedNoteNaturalHarmonic(whole(), true));
    EXPECT_EQ(beat(0, 0).notes()[0]->harmonic(), (Harmonic{HarmonicType::Natural, 3}));
    EXPECT_EQ(beat(0, 1).notes()[0]->harmonic(), Harmonic());
    EXPECT_TRUE(score.setNoteTrill(small.from(0, 0, 0, 1), 53));
    EXPECT_EQ(beat(0, 1).notes()[1]->trill().interval, 1U);
}
