// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnCoreUtils.h>
#include <ZarnCore/commands/ZarnMacroCommandRecorder.h>
#include <ZarnCore/events/ZarnEvents.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace zarn;

/// Bar and beat, counted from 1.
std::string placeOf(const ScoreModelIndex &index)
{
    return std::to_string(index.barIndex() + 1LL) + ":" + std::to_string(index.beatIndex() + 1LL);
}

struct CursorTest : testing::Test {
    std::unique_ptr<Score> score = ZarnCoreUtils::make_from_string(
        "guitar: 1:0q 2:0 3:0 4:0 | 1:0h 2:0 & 6:0w | rq | rq ;"
        "bass: 1:0w | 1:0h 2:0h | 4:0w | 1:0q 2:0 3:0 ;"
        "piano: [c4 e4 g4]w | e4w | c4w | c4w + c3h d3 | c3q d3 e3 f3 | c3w | c3w");
    ScoreCursor &cursor = score->scoreCursor();
    std::string events;

    CursorTest()
    {
        score->connect<evt::ScoreCursorMoved>(this, [this](const evt::ScoreCursorMoved &moved) {
            events += placeOf(moved.oldValue()) + ">" + placeOf(moved.newValue()) + " ";
        });
        score->connect<evt::CommandExecuted>(this, [this](const auto &) { events += "done "; });
    }
    ~CursorTest() override
    {
        score->disconnect<evt::ScoreCursorMoved>(this);
        score->disconnect<evt::CommandExecuted>(this);
    }

    void put(int bar, int beat, int track = 0, unsigned voice = 0, unsigned staff = 0)
    {
        cursor.setIndex(ScoreModelIndex(score->scoreModel().get(), track, bar, beat, voice, staff));
        ASSERT_TRUE(cursor.isValid());
        events.clear();
    }
    std::string place() const { return placeOf(cursor.index()); }
    std::string takeEvents() { return std::exchange(events, std::string()); }

    /// Places of a walk to its end.
    std::string walk(bool (ScoreCursor::*step)(CursorStep), CursorStep over)
    {
        std::string places;
        while ((cursor.*step)(over))
            places += place() + " ";
        return places;
    }
};

TEST_F(CursorTest, beatsAreWalkedWithThePlacesWhereTheNextOneIsEntered)
{
    EXPECT_FALSE(cursor.isValid());
    EXPECT_EQ(walk(&ScoreCursor::next, CursorStep::Beat),
              "1:1 1:2 1:3 1:4 2:1 2:2 3:1 3:2 4:1 4:2 ");
    EXPECT_EQ(cursor.index().noteString(), 5U) << "from nowhere it starts on the highest string";
    EXPECT_EQ(walk(&ScoreCursor::previous, CursorStep::Beat),
              "4:1 3:2 3:1 2:2 2:1 1:4 1:3 1:2 1:1 ");

    // A voice without beats is walked bar by bar; in free time a bar is never full.
    put(0, 0, 0, 1);
    EXPECT_EQ(walk(&ScoreCursor::next, CursorStep::Beat), "2:1 3:1 4:1 ");
    EXPECT_EQ(walk(&ScoreCursor::previous, CursorStep::Beat), "3:1 2:1 1:1 ");
    ASSERT_TRUE(score->setMasterBarFreeTime(1, 1, true));
    put(1, 0, 0, 1);
    EXPECT_TRUE(cursor.next(CursorStep::Beat));
    EXPECT_EQ(place(), "2:2");
    EXPECT_TRUE(cursor.next(CursorStep::Beat));
    EXPECT_EQ(place(), "3:1");

    // From a bar as such, its first beat is the next one.
    put(1, -1);
    EXPECT_TRUE(cursor.next(CursorStep::Beat));
    EXPECT_EQ(place(), "2:1");
    put(1, -1);
    EXPECT_TRUE(cursor.previous(CursorStep::Beat));
    EXPECT_EQ(place(), "1:4");
}

TEST_F(CursorTest, everyMoveIsAnnouncedOnceAndNoneAtTheEnds)
{
    put(0, 2);
    EXPECT_TRUE(cursor.next(CursorStep::Bar));
    EXPECT_TRUE(cursor.toLast(CursorStep::Beat));
    EXPECT_TRUE(cursor.toLast(CursorStep::Beat)) << "it is there";
    EXPECT_TRUE(cursor.to(CursorStep::Beat, 2)) << "behind the last beat";
    EXPECT_FALSE(cursor.to(CursorStep::Beat, 3));
    EXPECT_TRUE(cursor.toFirst(CursorStep::Bar));
    EXPECT_TRUE(cursor.toLast(CursorStep::Bar));
    EXPECT_EQ(takeEvents(), "1:3>2:1 2:1>2:2 2:2>2:3 2:3>1:1 1:1>4:1 ");

    const ScoreModelIndex end = cursor.index();
    EXPECT_FALSE(cursor.next(CursorStep::Bar));
    EXPECT_FALSE(cursor.to(CursorStep::Bar, 4));
    EXPECT_FALSE(cursor.to(CursorStep::Bar, -1));
    EXPECT_FALSE(cursor.previous(CursorStep::Voice));
    EXPECT_FALSE(cursor.previous(CursorStep::Staff));
    EXPECT_FALSE(cursor.next(CursorStep::Staff));
    EXPECT_FALSE(cursor.previous(CursorStep::Track));
    EXPECT_FALSE(cursor.to(CursorStep::String, 6));
    EXPECT_EQ(cursor.index(), end);
    EXPECT_EQ(takeEvents(), "");

    // A copy moves on its own.
    const auto ahead = cursor.cloneScoreCursor();
    EXPECT_TRUE(ahead->previous(CursorStep::Bar));
    EXPECT_EQ(placeOf(ahead->index()), "3:1");
    EXPECT_EQ(place(), "4:1");
    EXPECT_EQ(takeEvents(), "");
}

TEST_F(CursorTest, voicesStavesAndTracksKeepTheTime)
{
    put(1, 1); // the second half
    EXPECT_TRUE(cursor.next(CursorStep::Voice));
    EXPECT_EQ(place(), "2:1") << "the whole note is all there is";
    put(1, 1);
    EXPECT_TRUE(cursor.next(CursorStep::Track));
    EXPECT_EQ(place(), "2:2");
    EXPECT_TRUE(cursor.toLast(CursorStep::Track));
    EXPECT_EQ(place(), "2:1");

    put(1, 2, 2, 0, 1); // third quarter of the left hand
    EXPECT_TRUE(cursor.previous(CursorStep::Track));
    EXPECT_EQ(place(), "2:2");
    EXPECT_EQ(cursor.index().staffIndex(), 0U) << "the bass has one staff";
    put(1, 3, 2, 0, 1); // the fourth lies as near to the second half as to the end of the bar
    EXPECT_TRUE(cursor.previous(CursorStep::Track));
    EXPECT_EQ(place(), "2:2");
    put(3, 3, 1); // behind the third quarter
    EXPECT_TRUE(cursor.previous(CursorStep::Track));
    EXPECT_EQ(place(), "4:2") << "the place behind the rest is the nearest";
    EXPECT_TRUE(cursor.toLast(CursorStep::Voice));
    EXPECT_EQ(cursor.index().voiceIndex(), 3U);
    EXPECT_EQ(place(), "4:1") << "no beats: before the first";
}

TEST_F(CursorTest, aGraceBeatMapsToTheBeatThatItLeadsTo)
{
    const auto &beats = score->track(0)->bar(0)->voice(0)->beats();
    beats[1]->setGraceType(GraceType::BeforeBeat);
    put(0, 1);
    ASSERT_TRUE(score->createBeat(ScoreModelIndex(nullptr, 0, 0, 0, 1, 0),
                                  RhythmValue(RhythmValue::NoteValue::Quarter)));
    ASSERT_TRUE(score->createBeat(ScoreModelIndex(nullptr, 0, 0, 1, 1, 0),
                                  RhythmValue(RhythmValue::NoteValue::Quarter)));
    EXPECT_TRUE(cursor.next(CursorStep::Voice));
    EXPECT_EQ(place(), "1:2");
    EXPECT_TRUE(cursor.previous(CursorStep::Voice));
    EXPECT_EQ(place(), "1:3") << "both start there; the main beat is the one to write on";
    EXPECT_TRUE(cursor.previous(CursorStep::Beat));
    EXPECT_EQ(place(), "1:2") << "step by step the grace beat counts";
}

TEST_F(CursorTest, stringsRunFromTheHighestAndAreClippedWhereThereAreFewer)
{
    cursor.next(CursorStep::Beat);
    const auto string = [this] { return cursor.index().noteString(); };
    EXPECT_TRUE(cursor.next(CursorStep::String));
    EXPECT_EQ(string(), 4U);
    EXPECT_TRUE(cursor.toLast(CursorStep::String));
    EXPECT_EQ(string(), 0U);
    EXPECT_FALSE(cursor.next(CursorStep::String));
    EXPECT_TRUE(cursor.toFirst(CursorStep::String));
    EXPECT_EQ(string(), 5U);
    EXPECT_FALSE(cursor.previous(CursorStep::String));
    EXPECT_TRUE(cursor.next(CursorStep::Bar));
    EXPECT_EQ(string(), 5U) << "it stays with the cursor";
    EXPECT_TRUE(cursor.next(CursorStep::Track));
    EXPECT_EQ(string(), 3U) << "of a bass";
    EXPECT_TRUE(cursor.next(CursorStep::Track));
    EXPECT_EQ(string(), 3U) << "a piano does not touch it";
    EXPECT_TRUE(cursor.previous(CursorStep::Track));
    EXPECT_EQ(string(), 3U);

    // Fewer strings under the cursor.
    put(0, 0);
    cursor.to(CursorStep::String, 5);
    ASSERT_TRUE(score->setGuitarFullTuning(0, 0, GuitarTuning({40U, 45U, 50U, 55U, 59U})));
    EXPECT_EQ(string(), 4U);
    score->commandStack().undo();
    EXPECT_EQ(string(), 5U);
}

TEST_F(CursorTest, withoutStringsTheNotesOfTheBeatAreWalked)
{
    put(0, 0, 2);
    const auto key = [this] { return static_cast<int>(cursor.index().noteMidi()); };
    EXPECT_TRUE(cursor.next(CursorStep::String));
    EXPECT_EQ(key(), 67);
    EXPECT_TRUE(cursor.next(CursorStep::String));
    EXPECT_EQ(key(), 64);
    EXPECT_TRUE(cursor.next(CursorStep::String));
    EXPECT_EQ(key(), 60);
    EXPECT_FALSE(cursor.next(CursorStep::String));
    EXPECT_TRUE(cursor.previous(CursorStep::String));
    EXPECT_EQ(cursor.index().note(), cursor.index().beat()->noteWithMidi(64));
    EXPECT_TRUE(cursor.next(CursorStep::Beat));
    EXPECT_EQ(key(), -1) << "the note is left behind with its beat";
    EXPECT_TRUE(cursor.previous(CursorStep::Beat));
    EXPECT_TRUE(cursor.previous(CursorStep::String));
    EXPECT_EQ(key(), 60) << "from below";
    EXPECT_FALSE(cursor.toFirst(CursorStep::String));
}

TEST_F(CursorTest, whatAnEditTakesAwayIsLeftForTheNearestPlace)
{
    put(3, 1);
    ASSERT_TRUE(score->removeBarRange(2, 3));
    EXPECT_EQ(takeEvents(), "4:2>2:2 done ") << "before the step is over";
    score->commandStack().undo();
    EXPECT_EQ(takeEvents(), "2:2>4:2 done ");
    score->commandStack().redo();
    EXPECT_EQ(takeEvents(), "4:2>2:2 done ");
    score->commandStack().undo();

    put(0, 3);
    ASSERT_TRUE(score->removeBeats(ScoreModelRange(ScoreModelIndex(nullptr, 0, 0, 1, 0, 0),
                                                   ScoreModelIndex(nullptr, 0, 0, 3, 0, 0),
                                                   SelectionMode::MultiSelection)));
    score->commandStack().undo();
    EXPECT_EQ(takeEvents(), "1:4>1:2 done 1:2>1:4 done ");

    put(1, 3, 2, 0, 1);
    ASSERT_TRUE(score->removeTrack(2));
    EXPECT_EQ(cursor.index().trackIndex(), 1);
    EXPECT_EQ(cursor.index().staffIndex(), 0U);
    EXPECT_EQ(takeEvents(), "2:4>2:3 done ");

    // A macro is one step: on the way the first bars are all there is.
    put(3, 0);
    {
        MacroCommandRecorder recorder(score.get());
        score->removeBarRange(1, 3);
        score->createBars(1, 2);
        recorder.commit();
    }
    EXPECT_EQ(takeEvents(), "4:1>3:1 done ");
    score->commandStack().undo();
    EXPECT_EQ(takeEvents(), "3:1>4:1 done ");
}

TEST_F(CursorTest, withoutGroundItIsNowhereUntilUndoPutsItBack)
{
    put(1, 1);
    ASSERT_TRUE(score->removeTrack(2));
    ASSERT_TRUE(score->removeTrack(1));
    EXPECT_EQ(takeEvents(), "done done ");
    ASSERT_TRUE(score->removeTrack(0));
    EXPECT_EQ(cursor.index().trackIndex(), -1);
    EXPECT_EQ(takeEvents(), "2:2>0:0 done ");
    for (const CursorStep step : {CursorStep::Beat, CursorStep::Bar, CursorStep::Voice,
                                  CursorStep::String, CursorStep::Staff, CursorStep::Track}) {
        EXPECT_FALSE(cursor.next(step) || cursor.previous(step) || cursor.toFirst(step)
                     || cursor.toLast(step) || cursor.to(step, 0));
    }
    EXPECT_EQ(takeEvents(), "");
    score->commandStack().undo();
    EXPECT_EQ(takeEvents(), "0:0>2:2 done ");
    ASSERT_TRUE(score->removeBarRange(0, 3));
    EXPECT_EQ(takeEvents(), "2:2>0:0 done ");
    ASSERT_TRUE(score->createBars(0, 1));
    EXPECT_EQ(takeEvents(), "done ") << "nowhere stays nowhere";
    EXPECT_TRUE(cursor.previous(CursorStep::Voice)) << "any key leads to the first beat";
    EXPECT_EQ(place(), "1:1");
}

TEST_F(CursorTest, onlyAPlaceThatExistedIsHeldToTheGround)
{
    // A place for what is about to be made.
    cursor.setIndex(ScoreModelIndex(nullptr, 0, 6, 0, 0, 0));
    ASSERT_TRUE(score->createBars(0, 1));
    EXPECT_EQ(place(), "7:1");
    EXPECT_FALSE(cursor.isValid());
    ASSERT_TRUE(score->createBars(0, 2));
    EXPECT_TRUE(cursor.isValid());
    ASSERT_TRUE(score->removeBarRange(0, 2));
    EXPECT_EQ(place(), "4:1") << "once it had come, it is held";

    // What was saved may be gone when the model was changed without commands.
    put(3, 1);
    ASSERT_TRUE(score->setTrackName(0, QStringLiteral("A")));
    put(0, 0);
    score->scoreModel()->takeBarColumns(2, 3);
    score->commandStack().undo();
    EXPECT_EQ(takeEvents(), "1:1>2:2 done ");

    // And so may all of the model.
    score->setScoreModel(ZarnCoreUtils::make_from_string("guitar: 1:0")->scoreModel()->clone());
    EXPECT_EQ(takeEvents(), "2:2>1:2 ");
    const ScoreModelIndex wild(score->scoreModel().get(), 70000, 2147483647, -2147483647 - 1,
                               Bar::MaxVoices, 0xFFFFFFFF);
    cursor.setIndex(wild);
    EXPECT_EQ(cursor.index(), wild);
    EXPECT_TRUE(cursor.to(CursorStep::Voice, 1));
    EXPECT_EQ(place(), "1:1");
}

TEST_F(CursorTest, aStepThatRaisedLeavesItWhereItWas)
{
    put(3, 1);
    const auto failing = score->connectScoped<evt::RemoveBars>(
        &events, [](const auto &) { throw std::runtime_error("no"); });
    EXPECT_THROW(score->removeBarRange(2, 3), std::runtime_error);
    EXPECT_EQ(place(), "4:2");
    EXPECT_EQ(takeEvents(), "");
}

} // namespace
