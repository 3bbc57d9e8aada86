// SPDX-License-Identifier: MIT
#include "support/SmallScore.h"

#include <ZarnCore/commands/Beat/ZarnWriteBeats.h>
#include <ZarnCore/events/ZarnBarEvents.h>

#include <gtest/gtest.h>

namespace {

using namespace zarn;

struct NoteCommandsTest : testing::Test, SmallScore {
    const Note &note(unsigned bar, unsigned at, unsigned number = 0) const
    {
        return *beat(bar, at).notes()[number];
    }
};

TEST_F(NoteCommandsTest, fretsSoundWithTuningCapoAndTransposition)
{
    ASSERT_TRUE(score.setStringedNote(at(0, 2), 3, 5));
    EXPECT_EQ(note(0, 2).midi(), 55 + 5 + 12) << "a guitar is written an octave higher";
    EXPECT_FALSE(beat(0, 2).isRest());

    model.track(0)->staff(0)->setCapoFret(3);
    ASSERT_TRUE(score.setStringedNote(at(0, 2), 0, 0));
    EXPECT_EQ(note(0, 2, 1).midi(), 40 + 3 + 12);
    model.setIgnoreCapo(true);
    ASSERT_TRUE(score.setStringedNote(at(0, 2), 0, 5));
    EXPECT_EQ(note(0, 2, 1).midi(), 40 + 5 + 12) << "frets count from the nut";

    // A five-string banjo: the short drone string starts at fret 5.
    model.createAndInsertTrack(2, InstrumentSet::banjo);
    model.track(2)->bar(0)->ensureVoice(0)->addBeat(std::make_shared<Beat>());
    EXPECT_FALSE(score.setStringedNote(at(0, 0, 2), 0, 3));
    ASSERT_TRUE(score.setStringedNote(at(0, 0, 2), 0, 7));
    EXPECT_EQ(model.track(2)->bar(0)->voice(0)->beat(0)->note(0)->midi(), 67 + 2 + 12);
}

TEST_F(NoteCommandsTest, aNoteThatTakesTheOthersPlaceKeepsAllButThePitch)
{
    beat(0, 1).notes()[0]->setGhost(true);
    beat(0, 1).notes()[0]->setSpelling(
        PitchClass(NoteName(NoteName::Value::A), NoteAccidental(NoteAccidental::Value::Natural)));
    ASSERT_TRUE(score.setStringedNote(at(0, 1), 1, 3));
    EXPECT_EQ(beat(0, 1).noteCount(), 2U);
    EXPECT_TRUE(note(0, 1).isGhost());
    EXPECT_EQ(note(0, 1).midi(), 60);
    EXPECT_FALSE(note(0, 1).spelling().has_value());
}

TEST_F(NoteCommandsTest, aChangedOrRemovedNoteLetsGoOfItsTies)
{
    const auto isWhole = [this] { return note(0, 3).isTieOrigin() && note(1, 0).isTied(); };
    const auto isTorn = [this] { return !note(0, 3).isTieOrigin() && !note(1, 0).isTied(); };
    ASSERT_TRUE(isWhole());

    ASSERT_TRUE(score.setStringedNote(at(0, 3), 5, 2));
    EXPECT_TRUE(isTorn());
    score.commandStack().undo();
    EXPECT_TRUE(isWhole());

    ASSERT_TRUE(score.setStringedNote(at(0, 3), 5, 0)) << "the same pitch again";
    EXPECT_TRUE(isWhole());
    score.commandStack().undo();

    ASSERT_TRUE(score.setNoteRest(ScoreModelRange(at(1, 0))));
    EXPECT_FALSE(note(0, 3).isTieOrigin());
    score.commandStack().undo();
    EXPECT_TRUE(isWhole());

    ASSERT_TRUE(score.createBeat(at(0, 4), RhythmValue()));
    EXPECT_TRUE(isTorn()) << "a rest comes between";
    score.commandStack().undo();
    EXPECT_TRUE(isWhole());

    ASSERT_TRUE(score.removeBeats(ScoreModelRange(at(0, 3))));
    EXPECT_FALSE(note(1, 0).isTied());
    score.commandStack().undo();
    EXPECT_TRUE(isWhole());
}

TEST_F(NoteCommandsTest, removedBarsOfBeatsLeaveNoTieToWhatWentWithThem)
{
    // Bar 3 begins with what the last note of bar 1 is: nothing is held over the bars between.
    while (model.masterTrack()->masterBarCount() < 4)
        ASSERT_TRUE(score.createBar(model.masterTrack()->masterBarCount()));
    const auto voice = model.track(0)->staff(0)->bar(2)->ensureVoice(0);
    auto held = std::make_shared<Note>(note(1, 0));
    voice->insertBeat(0, std::make_shared<Beat>());
    voice->beat(0)->addNote(held);
    held->setTied(true);
    ASSERT_TRUE(note(0, 3).isTieOrigin());
    const auto before = model.track(0)->clone();

    const auto last = voice->beatCount() - 1;
    ASSERT_TRUE(score.removeBeats(ScoreModelRange(at(1, 0), at(2, last))));
    EXPECT_FALSE(note(0, 3).isTieOrigin());
    score.commandStack().undo();
    EXPECT_EQ(*model.track(0), *before);
}

TEST_F(NoteCommandsTest, writtenMusicKeepsItsOwnTiesAndReleasesThoseThatItParts)
{
    // The last note of bar 1 is held into bar 2.
    ASSERT_TRUE(note(0, 3).isTieOrigin() && note(1, 0).isTied());
    const auto before = model.track(0)->clone();
    const auto tied = [](bool isTied, bool isOrigin) {
        auto beat = std::make_shared<Beat>();
        auto held = std::make_shared<Note>(60);
        held->setTied(isTied);
        held->setTieOrigin(isOrigin);
        beat->addNote(held);
        return beat;
    };
    std::vector<WrittenStretch> stretches(2);
    stretches[0].bar = 0;
    stretches[0].firstBeat = 3;
    stretches[0].replacedCount = 1;
    stretches[0].beats = {tied(false, true)};
    stretches[1].bar = 1;
    stretches[1].beats = {tied(true, false)};
    ASSERT_TRUE(score.writeBeats(0, 0, stretches));
    EXPECT_TRUE(note(0, 3).isTieOrigin());
    EXPECT_TRUE(note(1, 0).isTied()) << "over the bar line";
    EXPECT_EQ(note(1, 0).midi(), 60);
    EXPECT_FALSE(note(1, 1).isTied()) << "what it was tied to is gone";
    score.commandStack().undo();
    EXPECT_EQ(*model.track(0), *before);
    score.commandStack().redo();
    EXPECT_TRUE(note(0, 3).isTieOrigin() && note(1, 0).isTied());
}

TEST_F(NoteCommandsTest, theTiesOfOtherNotesAreNoneOfItsBusiness)
{
    beat(0, 1).notes()[1]->setTieOrigin(true); // into the rest: nothing continues it
    ASSERT_TRUE(score.setStringedNote(at(0, 1), 1, 3));
    EXPECT_TRUE(note(0, 1, 1).isTieOrigin());
    score.commandStack().undo();
    EXPECT_TRUE(note(0, 1, 1).isTieOrigin());
}

TEST_F(NoteCommandsTest, aPitchGoesToTheFreeStringWithTheLowestFret)
{
    // Strings 1 and 2 are taken: written 59 is fret 2 on string 1, fret 7 on string 0.
    ASSERT_TRUE(score.setMIDINote(at(0, 1), 59));
    EXPECT_EQ(note(0, 1, 2).string(), 0);
    EXPECT_EQ(note(0, 1, 2).fret(), 7);
    score.commandStack().undo();

    ScoreModelIndex named = at(0, 1);
    named.setNoteMidi(57);
    named.setNoteString(1);
    ASSERT_TRUE(score.setMIDINote(named, 59));
    EXPECT_EQ(beat(0, 1).noteCount(), 2U);
    EXPECT_EQ(note(0, 1).string(), 1) << "in place of the named one, on its string";
    EXPECT_EQ(note(0, 1).fret(), 2);

    ASSERT_TRUE(score.setMIDINote(at(0, 0, 1), 21)) << "a piano has no strings to look for";
    model.createAndInsertTrack(2, InstrumentSet::violin);
    model.track(2)->bar(0)->ensureVoice(0)->addBeat(std::make_shared<Beat>());
    ASSERT_TRUE(score.setMIDINote(at(0, 0, 2), 105)) << "above the fingerboard";
}

TEST_F(NoteCommandsTest, restsOfAWholeBarAndPlaceHoldersBecomeWhatIsWritten)
{
    beat(0, 2).setWholeBarRest(true);
    ASSERT_TRUE(score.setBeatRhythm(ScoreModelRange(at(0, 2)), RhythmValue()));
    EXPECT_FALSE(beat(0, 2).isWholeBarRest());
    score.commandStack().undo();
    EXPECT_TRUE(beat(0, 2).isWholeBarRest());
    beat(0, 2).setWholeBarRest(false);

    beat(0, 2).setPlaceHolder(true);
    ASSERT_TRUE(score.setNoteRest(ScoreModelRange(at(0, 2))));
    EXPECT_TRUE(beat(0, 2).isRest());
    score.commandStack().undo();
    EXPECT_TRUE(beat(0, 2).isPlaceHolder());
    ASSERT_TRUE(score.setStringedNote(at(0, 2), 0, 1));
    ASSERT_TRUE(score.setNoteRest(ScoreModelRange(at(0, 2))));
    EXPECT_TRUE(beat(0, 2).isRest()) << "what was a place holder once is none any more";
}

TEST_F(NoteCommandsTest, everyTouchedStaffIsAnnouncedWithItsBarsInOrder)
{
    std::string places;
    score.connect<evt::ModifyBarRange>(this, [&](const evt::ModifyBarRange &event) {
        places += std::to_string(event.trackIndex()) + "." + std::to_string(event.staffIndex())
            + ":" + std::to_string(event.firstBar()) + "-" + std::to_string(event.lastBar()) + " ";
    });
    ScoreModelRange range;
    range.setFirst({&model, 1, 3, -1, 0, 1});
    range.setSecond({&model, 1, 2, -1, 0, 0});
    range.setSelectionMode(SelectionMode::MultiSelection | SelectionMode::MultiVoice);
    ASSERT_TRUE(score.setNoteRest(range));
    EXPECT_EQ(places, "1.0:2-3 1.1:2-3 ");
    EXPECT_TRUE(model.track(1)->bar(2)->voice(2)->beat(0)->isRest());
}

TEST_F(NoteCommandsTest, rangesMeanWhatIsSelected)
{
    const auto length = [this](unsigned bar, unsigned at) {
        return beat(bar, at).rhythmValue().getLength();
    };
    const RhythmValue half(RhythmValue::NoteValue::Half);
    ScoreModelRange reversed;
    reversed.setFirst(at(1, 1));
    reversed.setSecond(at(0, 2));
    ASSERT_TRUE(score.setBeatRhythm(reversed, half));
    EXPECT_EQ(length(0, 1), 1);
    EXPECT_EQ(length(0, 2), 2);
    EXPECT_EQ(length(1, 1), 2);
    EXPECT_EQ(length(1, 2), 1);
    score.commandStack().undo();

    const ScoreModelRange bar(at(2, -1), SelectionMode::None);
    ASSERT_TRUE(score.setBeatRhythm(bar, half)) << "no beat named: the voice's whole bar";
    EXPECT_EQ(length(2, 0), 2);
    EXPECT_EQ(length(2, 3), 2);
    EXPECT_EQ(length(3, 0), 1);

    ASSERT_TRUE(score.removeBeats(everything(0, 5)));
    for (const auto &track : model.tracks()) {
        for (const auto &each : track->bars())
            EXPECT_FALSE(each->hasBeats());
    }
}

} // namespace
