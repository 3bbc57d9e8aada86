// SPDX-License-Identifier: MIT
#include "support/CommandLaw.h"
#include "support/EventLog.h"
#include "support/SmallScore.h"

#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/model/ZarnBeatAttribute.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <utility>
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

using Frets = std::vector<std::int8_t>;

const Frets openE = {0, 2, 2, 1, 0, 0};
const Frets openD = {-1, -1, 0, 2, 3, 2};
const GuitarTuning standard(GuitarTuning::Guitar, {40, 45, 50, 55, 59, 64});
const GuitarTuning dropD(GuitarTuning::Guitar, {38, 45, 50, 55, 59, 64});
const GuitarTuning halfDown(GuitarTuning::Guitar, {39, 44, 49, 54, 58, 63});

/// E in two bars, a diagram alone, a chord off the lowest string, a symbol without a diagram, and
/// words that are no chord over a shape; all of them in the sets too.
struct RetunedChordsTest : testing::Test, SmallScore {
    RetunedChordsTest()
    {
        model.track(0)->staff(0)->setTuning(standard);
        beat(0, 0).setChord(chord("E", openE));
        beat(0, 1).setChord({"", chord("E", openE).diagram});
        beat(0, 2).setChord(chord("D", openD));
        beat(0, 3).setChord(chord("Am"));
        beat(1, 0).setChord(chord("Intro", openE));
        beat(1, 1).setChord(chord("E", openE));
        Staff &staff = *model.track(0)->staff(0);
        staff.setChordWorkingSet({"E", "Am", "Intro"});
        staff.setDiagramCollection({*chord("E", openE).diagram});
        staff.setDiagramWorkingSet({*chord("E", openE).diagram, *chord("D", openD).diagram});
    }

    void retune(const GuitarTuning &tuning, unsigned capo, Retuning retuning)
    {
        expectUndoable(score,
                       [&] { return score.setGuitarFullTuning(0, 0, tuning, capo, retuning); });
        score.commandStack().redo();
    }

    const ChordMark &chordAt(unsigned bar, unsigned at) { return beat(bar, at).chord(); }
    const Staff &staff() { return *model.track(0)->staff(0); }

    /// "E x22100 (E)": symbol, frets, name of the diagram.
    static std::string textOf(const ChordMark &chord)
    {
        return chord.symbol + (chord.diagram ? " " + textOf(*chord.diagram) : std::string());
    }
    static std::string textOf(const ChordDiagram &diagram)
    {
        std::string text;
        for (const int fret : diagram.frets)
            text += fret < 0 ? "x" : std::to_string(fret);
        return text + " (" + diagram.name + ")";
    }
    std::string chords()
    {
        std::string text;
        for (const auto &[bar, at] : {std::pair(0U, 0U), std::pair(0U, 1U), std::pair(0U, 2U),
                                      std::pair(0U, 3U), std::pair(1U, 0U), std::pair(1U, 1U)})
            text += textOf(chordAt(bar, at)) + "; ";
        return text;
    }
};

TEST_F(RetunedChordsTest, fingersThatSoundOtherwiseAreNamedAnew)
{
    retune(dropD, 0, Retuning::KeepFrets);
    EXPECT_EQ(chords(),
              "E/D 022100 (E/D);  022100 (E/D); D xx0232 (D); Am; Intro 022100 (Intro); "
              "E/D 022100 (E/D); ");
    EXPECT_EQ(chordAt(0, 0).diagram, chordAt(1, 1).diagram) << "found once";
    EXPECT_EQ(staff().chordWorkingSet(), (std::vector<std::string>{"E", "Am", "Intro"}));
    ASSERT_EQ(staff().diagramWorkingSet().size(), 2U);
    EXPECT_EQ(textOf(staff().diagramWorkingSet()[0]), "022100 (E/D)");
    EXPECT_EQ(textOf(staff().diagramWorkingSet()[1]), "xx0232 (D)");
    EXPECT_EQ(textOf(staff().diagramCollection()[0]), "022100 (E/D)");
    // Back in the old tuning a name that fits what sounds again is found.
    ASSERT_TRUE(score.setGuitarFullTuning(0, 0, standard));
    EXPECT_EQ(textOf(chordAt(0, 0)), "E 022100 (E)");
}

TEST_F(RetunedChordsTest, aNameThatStillFitsStays)
{
    // What sounds then would be called C6 first, which is the same chord.
    beat(0, 0).setChord(chord("Am7/C", {-1, 3, 2, 0, 1, 3}));
    const GuitarTuning highA(GuitarTuning::Guitar, {40, 45, 50, 55, 59, 66});
    ASSERT_TRUE(score.setGuitarFullTuning(0, 0, highA));
    EXPECT_EQ(textOf(chordAt(0, 0)), "Am7/C x32013 (Am7/C)");
}

TEST_F(RetunedChordsTest, chordsThatAreToSoundAsBeforeAreFingeredAnew)
{
    retune(dropD, 0, Retuning::KeepPitches);
    EXPECT_EQ(textOf(chordAt(0, 2)), "D xx0232 (D)") << "sounds as before";
    EXPECT_EQ(textOf(chordAt(0, 3)), "Am");
    EXPECT_EQ(textOf(chordAt(1, 0)), "Intro") << "nobody knows how to play that";
    EXPECT_EQ(chordAt(0, 0).symbol, "E");
    EXPECT_EQ(chordAt(0, 1).symbol, "");
    for (const auto &chord : {chordAt(0, 0), chordAt(0, 1), chordAt(1, 1)}) {
        ASSERT_NE(chord.diagram, nullptr);
        EXPECT_EQ(chord.diagram->name, "E");
        std::set<int> tones;
        std::vector<int> pitches;
        for (unsigned string = 0; string < 6; ++string)
            if (chord.diagram->frets[string] >= 0)
                pitches.push_back(dropD.midi(string, chord.diagram->frets[string]));
        for (const int pitch : pitches)
            tones.insert(pitch % 12);
        EXPECT_EQ(tones, (std::set<int>{4, 8, 11})) << textOf(chord);
        EXPECT_EQ(*std::min_element(pitches.begin(), pitches.end()) % 12, 4) << textOf(chord);
    }
    EXPECT_EQ(chordAt(0, 0).diagram, chordAt(1, 1).diagram) << "found once";
    EXPECT_EQ(staff().chordWorkingSet(), (std::vector<std::string>{"E", "Am", "Intro"}));
    ASSERT_EQ(staff().diagramCollection().size(), 1U);
    EXPECT_EQ(staff().diagramCollection()[0], *chordAt(0, 1).diagram);

    // A chord that nobody knows, and was its diagram alone, keeps its name.
    beat(0, 0).setChord({"", chord("Outro", openE).diagram});
    ASSERT_TRUE(score.setGuitarFullTuning(0, 0, standard, 0, Retuning::KeepPitches));
    EXPECT_EQ(textOf(chordAt(0, 0)), "Outro");
}

TEST_F(RetunedChordsTest, stringsThatGoTheSameWayTakeTheNamesAlong)
{
    retune(halfDown, 0, Retuning::KeepFrets);
    EXPECT_EQ(chords(),
              "D# 022100 (D#);  022100 (D#); C# xx0232 (C#); G#m; Intro 022100 (Intro); "
              "D# 022100 (D#); ");
    EXPECT_EQ(staff().chordWorkingSet(), (std::vector<std::string>{"D#", "G#m", "Intro"}));
    EXPECT_EQ(textOf(staff().diagramCollection()[0]), "022100 (D#)");
    score.commandStack().undo();
    retune(standard, 2, Retuning::KeepFrets);
    EXPECT_EQ(textOf(chordAt(0, 0)), "F# 022100 (F#)");
    EXPECT_EQ(textOf(chordAt(0, 3)), "Bm");
    score.commandStack().undo();

    // To sound as before, they need the shapes of other chords.
    retune(halfDown, 0, Retuning::KeepPitches);
    EXPECT_EQ(textOf(chordAt(0, 0)), "E 133211 (E)");
    EXPECT_EQ(textOf(chordAt(0, 3)), "Am");
    score.commandStack().undo();
    retune(standard, 2, Retuning::KeepPitches);
    EXPECT_EQ(textOf(chordAt(0, 0)), "E xx0232 (E)");
}

TEST_F(RetunedChordsTest, anotherNumberOfStringsTakesOtherShapes)
{
    const GuitarTuning ukulele(GuitarTuning::Ukulele, {67, 60, 64, 69});
    for (const Retuning retuning : {Retuning::KeepFrets, Retuning::KeepPitches}) {
        retune(ukulele, 0, retuning);
        EXPECT_EQ(chords(), "E 4442 (E);  4442 (E); D 2220 (D); Am; Intro; E 4442 (E); ");
        ASSERT_EQ(staff().diagramWorkingSet().size(), 2U);
        EXPECT_EQ(textOf(staff().diagramWorkingSet()[1]), "2220 (D)");
        score.commandStack().undo();
    }
    retune(GuitarTuning(), 0, Retuning::KeepPitches);
    EXPECT_EQ(chords(), "E; E; D; Am; Intro; E; ");
    EXPECT_TRUE(staff().diagramWorkingSet().empty());
}

TEST_F(RetunedChordsTest, onlyChordsThatChangeAreAnnounced)
{
    for (const unsigned at : {0U, 1U, 3U})
        beat(0, at).setChord({});
    for (const unsigned at : {0U, 1U})
        beat(1, at).setChord({});
    Staff &guitar = *model.track(0)->staff(0);
    guitar.setDiagramCollection({});
    guitar.setDiagramWorkingSet({*chord("D", openD).diagram});
    EventLog log(score);
    ASSERT_TRUE(score.setGuitarFullTuning(0, 0, dropD));
    EXPECT_EQ(log.take().find("ChordsChanged"), std::string::npos);
    // The last bar has no notes, yet its chord changes.
    auto rest = std::make_shared<Beat>();
    rest->setChord(chord("E", openE));
    model.track(0)->bar(5)->ensureVoice(0)->addBeat(rest);
    score.commandStack().clear();
    ASSERT_TRUE(score.setGuitarFullTuning(0, 0, standard, 0, Retuning::KeepPitches));
    const std::string events = log.take();
    EXPECT_NE(events.find("ModifyBarRange(0,0,5,5) "), std::string::npos) << events;
    EXPECT_NE(events.find("ChordsChanged(0,0) "), std::string::npos) << events;
}

} // namespace
