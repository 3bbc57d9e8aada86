// SPDX-License-Identifier: MIT
#include "support/CommandLaw.h"
#include "support/SmallScore.h"

#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/model/notes/ZarnFretting.h>
#include <ZarnCore/model/notes/ZarnWrittenPitch.h>
#include <ZarnCore/music/ZarnPitchClass.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

using namespace zarn;

/// "C#:61" of a note, with "/string/fret" on strings.
std::string textOf(const Note &note)
{
    std::string text = note.spelling() ? note.spelling()->toString().toStdString() : "";
    text += ":" + std::to_string(note.midi());
    if (note.string() != Note::Unset)
        text += "/" + std::to_string(note.string()) + "/" + std::to_string(note.fret());
    return text;
}

std::string textOf(const Beat &beat)
{
    std::string text;
    for (const auto &note : beat.notes())
        text += (text.empty() ? "" : " ") + textOf(*note);
    return text;
}

struct PitchCommandsTest : testing::Test {
    SmallScore small;
    Score &score = small.score;

    Note &note(unsigned bar, unsigned beat, unsigned number = 0) const
    {
        return *small.beat(bar, beat).notes()[number];
    }
    Note &pianoNote(unsigned bar) const
    {
        return *small.model.track(1)->bar(bar)->voice(0)->beats()[0]->notes()[0];
    }
    ScoreModelRange wholeBeat(int bar, int beat) const
    {
        return ScoreModelRange(small.at(bar, beat), SelectionMode::MultiSelection);
    }
    /// Does what can be undone.
    void expectDone(const std::function<bool()> &act)
    {
        expectUndoable(score, act);
        EXPECT_TRUE(act());
    }
    /// Puts a note on a string, at its pitch.
    void put(unsigned bar, unsigned beat, int string, int fret) const
    {
        const auto made =
            std::make_shared<Note>(writtenPitch(*small.model.track(0)->staff(0), string, fret));
        made->setString(string);
        made->setFret(fret);
        small.beat(bar, beat).addNote(made);
    }
};

TEST_F(PitchCommandsTest, whatIsTiedMovesAsOneToAStringThatAllPiecesHaveFree)
{
    // g on its open string, over three beats; the second has the string that plays f sharp lowest.
    for (const unsigned beat : {0U, 1U, 2U}) {
        small.beat(0, beat).takeNotes();
        put(0, beat, 3, 0);
        note(0, beat).setTied(beat > 0);
        note(0, beat).setTieOrigin(beat < 2);
    }
    put(0, 1, 2, 4);
    expectDone([this] { return score.shiftSemitone(wholeBeat(0, 2), -1); });
    // f sharp is on fret 4 of the d string and on fret 9 of the a string.
    for (const unsigned beat : {0U, 1U, 2U})
        EXPECT_EQ(textOf(note(0, beat)), ":66/1/9") << beat;
    EXPECT_EQ(textOf(note(0, 1, 1)), ":66/2/4");
}

TEST_F(PitchCommandsTest, aChordMovesOverItsStringsAsOne)
{
    small.beat(0, 1).takeNotes();
    for (const int string : {0, 1, 2})
        put(0, 1, string, 7);
    expectDone([this] { return score.shiftOneString(wholeBeat(0, 1), Shift::Up); });
    EXPECT_EQ(textOf(small.beat(0, 1)), ":59/1/2 :64/2/2 :69/3/2");
    EXPECT_TRUE(score.shiftOneString(wholeBeat(0, 1), Shift::Down));
    EXPECT_EQ(textOf(small.beat(0, 1)), ":59/0/7 :64/1/7 :69/2/7");
    EXPECT_FALSE(score.shiftOneString(wholeBeat(0, 1), Shift::Down)) << "no string below";
}

/// Editions may write pitches an octave above what the frets sound: they stay so.
TEST_F(PitchCommandsTest, aPitchThatIsNotThatOfItsFretGoesAlong)
{
    note(0, 0).setMidi(64);
    EXPECT_TRUE(score.setStringedNoteFret(ScoreModelRange(small.onString(0, 0, 0)), 3));
    EXPECT_EQ(textOf(note(0, 0)), ":67/0/3");
    EXPECT_TRUE(score.shiftSemitone(ScoreModelRange(small.onString(0, 0, 0)), 2));
    EXPECT_EQ(textOf(note(0, 0)), ":69/0/5");
}

TEST_F(PitchCommandsTest, accidentalsKeepTheLetterAndSpellingsThePitch)
{
    using Value = NoteAccidental::Value;
    const ScoreModelRange place(small.at(0, 0, 1));
    const auto after = [&](bool isDone) {
        return (isDone ? "" : "refused ") + textOf(pianoNote(0));
    };
    pianoNote(0).setMidi(59);
    EXPECT_EQ(after(score.setNoteSoundingAccidental(place, Value::Sharp)), "B#:60");
    EXPECT_EQ(after(score.setNoteSoundingAccidental(place, Value::Flat)), "Bb:58");
    pianoNote(0).setMidi(60);
    pianoNote(0).clearSpelling();
    EXPECT_EQ(after(score.setNoteSoundingAccidental(place, Value::Flat)), "Cb:59");
    pianoNote(0).setMidi(61);
    pianoNote(0).clearSpelling();
    EXPECT_EQ(after(score.switchNoteAccidental(place)), "Db:61") << "from C sharp";
    EXPECT_EQ(after(score.switchNoteAccidental(place)), "B##:61");
    EXPECT_EQ(after(score.switchNoteAccidental(place)), "C#:61");
    EXPECT_EQ(after(score.shiftSemitone(place, 1)), ":62");
    pianoNote(0).setMidi(0);
    EXPECT_EQ(after(score.setNoteSoundingAccidental(place, Value::Flat)), "refused :0");
}

/// Each degree stays what it is, in notes, chords and keys; percussion is left alone.
TEST_F(PitchCommandsTest, thePieceGoesIntoAnotherKeyAndBack)
{
    small.model.createAndInsertTrack(2, InstrumentSet::drumKit);
    const auto drum = std::make_shared<Beat>();
    drum->addNote(std::make_shared<Note>(38));
    small.model.track(2)->bar(0)->ensureVoice(0)->addBeat(drum);
    pianoNote(0).setMidi(70);
    pianoNote(0).setSpelling(PitchClass::fromString(QStringLiteral("Bb")));
    Beat &beat = small.beat(0, 1);
    beat.setChord(
        {"Bbmi7/F",
         std::make_shared<const ChordDiagram>(ChordDiagram{"Bbmi7", 6, {6, 8, 6, 6, 6, 6}, {}})});
    expectDone([this] { return score.transposeAllTracks(5, true); });
    EXPECT_EQ(textOf(pianoNote(0)), "Eb:75");
    EXPECT_EQ(textOf(beat), ":62/1/5 :67/2/5");
    EXPECT_EQ(beat.chord().symbol, "Ebmi7/Bb");
    EXPECT_EQ(beat.chord().diagram->name, "Ebmi7");
    EXPECT_EQ(beat.chord().diagram->frets, (std::vector<std::int8_t>{11, 13, 11, 11, 11, 11}));
    const auto key = [this] {
        return small.model.masterTrack()->masterBars()[3]->concertKeySignature().accidentalCount();
    };
    EXPECT_EQ(key(), -1);
    EXPECT_TRUE(score.transposeAllTracks(-5, true));
    EXPECT_EQ(textOf(pianoNote(0)), "Bb:70");
    EXPECT_EQ(beat.chord().symbol, "Bbmi7/F");
    EXPECT_EQ(key(), 0);
    EXPECT_EQ(drum->notes()[0]->midi(), 38);
    EXPECT_FALSE(score.transposeTrack(2, 1)) << "no pitches";
    // An open string does not go along, and neither does the diagram; its name does.
    beat.setChord(
        {"", std::make_shared<const ChordDiagram>(ChordDiagram{"Am", 1, {-1, 0, 2, 2, 1, 0}, {}})});
    EXPECT_TRUE(score.transposeTrack(0, 2));
    EXPECT_EQ(beat.chord(), (ChordMark{"Bm", nullptr}));
}

TEST_F(PitchCommandsTest, aTransposingTrackSoundsAsBefore)
{
    pianoNote(0).setSpelling(PitchClass(NoteName::Value::C));
    expectDone([this] { return score.setTrackTranspositionOffset(1, -2); });
    EXPECT_EQ(textOf(pianoNote(0)), "D:62");
    EXPECT_EQ(writtenKeySignature(*small.model.track(1)->bar(0)).accidentalCount(), 2);
    const int before = note(0, 1).midi();
    EXPECT_TRUE(score.setTrackTranspositionOffset(0, 0));
    EXPECT_EQ(textOf(small.beat(0, 1)), ":45/1/0 :50/2/0");
    EXPECT_EQ(note(0, 1).midi(), before - 12);
    pianoNote(1).setMidi(120);
    EXPECT_FALSE(score.setTrackTranspositionOffset(1, -30));
}

/// What no string can take is played somewhere, and only without one when there is none.
TEST_F(PitchCommandsTest, transposingATrackMayCostANoteItsString)
{
    put(0, 2, 3, 2);
    EXPECT_TRUE(score.transposeTrack(0, -3));
    EXPECT_EQ(textOf(note(0, 0)), ":49");
    EXPECT_EQ(textOf(small.beat(0, 1)), ":54/0/2 :59/1/2");
    EXPECT_EQ(textOf(note(0, 2)), ":66/2/4");
    EXPECT_EQ(textOf(note(0, 3)), textOf(note(1, 0))) << "a tie";
    EXPECT_EQ(textOf(note(0, 3)), ":73/4/2");
}

TEST_F(PitchCommandsTest, assistantsDecideByTheBeatsAround)
{
    // Bar 0: e, a-d, rest, e' tied over.
    expectDone([this] { return score.letRingAssistant(small.from(0, 0, 0, 3), 63, true); });
    EXPECT_TRUE(note(0, 0).letsRing());
    EXPECT_TRUE(note(0, 1).letsRing());
    EXPECT_TRUE(note(0, 3).letsRing()) << "a tie strikes no string";
    put(0, 1, 0, 3);
    note(0, 0).setPalmMute(false);
    expectDone([this] { return score.letRingAssistant(small.from(0, 0, 0, 1), 63, true); });
    EXPECT_FALSE(note(0, 0).letsRing()) << "its string is struck again";
    expectDone([this] { return score.palmMuteAssistant(small.from(0, 0, 0, 3), 1, true); });
    EXPECT_TRUE(note(0, 0).isPalmMuted());
    EXPECT_FALSE(note(0, 1, 2).isPalmMuted()) << "in a chord with other strings";
    EXPECT_TRUE(note(0, 1).letsRing()) << "not on the chosen string";
}

TEST_F(PitchCommandsTest, stepsOfLengthStopAtTheEnds)
{
    using NoteValue = RhythmValue::NoteValue;
    small.beat(0, 1).setRhythmValue(RhythmValue(NoteValue::DWhole, 1));
    EXPECT_TRUE(score.incrementBeatDuration(small.from(0, 0, 0, 1), 3));
    EXPECT_EQ(small.beat(0, 0).rhythmValue(), RhythmValue(NoteValue::DWhole));
    EXPECT_EQ(small.beat(0, 1).rhythmValue(), RhythmValue(NoteValue::Long, 1));
    EXPECT_FALSE(score.incrementBeatDuration(ScoreModelRange(small.at(0, 1)), 1));
    EXPECT_TRUE(score.setNoteDurationAndVelocity(small.onString(0, 1, 2),
                                                 RhythmValue(NoteValue::Eighth), 99));
    EXPECT_EQ(note(0, 1, 0).velocity(), 0U);
    EXPECT_EQ(note(0, 1, 1).velocity(), 99U);
}

/// A snare, two hi-hats on one line and a kick.
struct PercussionTest : PitchCommandsTest {
    static InstrumentArticulation articulation(std::int32_t input, std::int32_t output,
                                               std::int32_t line)
    {
        InstrumentArticulation made;
        made.setInputMidiNumbers({input});
        made.setOutputMidiNumber(output);
        made.setStaffLine(line);
        return made;
    }

    PercussionTest()
    {
        InstrumentSet kit(InstrumentSet::drumKit);
        kit.setArticulations({articulation(38, 38, 3), articulation(42, 42, 7),
                              articulation(46, 46, 7), articulation(35, 36, -1)});
        library.setInstrumentSets({std::make_shared<const InstrumentSet>(kit)});
        InstrumentSetLibrary::install(&library);
        small.model.createAndInsertTrack(2, InstrumentSet::drumKit);
        small.model.track(2)->bar(0)->ensureVoice(0)->addBeat(std::make_shared<Beat>());
    }
    ~PercussionTest() override { InstrumentSetLibrary::install(nullptr); }

    const Beat &drums() const { return *small.model.track(2)->bar(0)->voice(0)->beats()[0]; }
    std::string articulations() const
    {
        std::string text;
        for (const auto &note : drums().notes())
            text += std::to_string(note->percussionArticulation()) + "@"
                + std::to_string(note->staffLine()) + " ";
        return text;
    }

    InstrumentSetLibrary library;
    const ScoreModelIndex place = small.at(0, 0, 2);
};

TEST_F(PercussionTest, notesAreWrittenAndTakenOffByArticulationOrLine)
{
    expectDone([this] { return score.createNonPitchedNote(place, 0); });
    EXPECT_FALSE(score.createNonPitchedNote(place, 0)) << "there already";
    EXPECT_FALSE(score.createNonPitchedNote(place, 4)) << "not in the set";
    expectDone([this] { return score.createNonPitchedNote(place, 42, 5); });
    EXPECT_FALSE(score.createNonPitchedNote(place, 42, 5)) << "there already";
    expectDone([this] { return score.createNonPitchedNote(place, 46, 5); });
    EXPECT_EQ(articulations(), "0@3 2@7 ") << "one note on a line";
    EXPECT_FALSE(score.removeNonPitchedNote(place, 42, 5));
    expectDone([this] { return score.removeNonPitchedNote(place, 46, 5); });
    EXPECT_EQ(articulations(), "0@3 ");
    EXPECT_FALSE(score.shiftSemitone(ScoreModelRange(place), 1)) << "no pitch";
}

TEST_F(PercussionTest, notesGoToTheNextPlaceThatPlaysSomething)
{
    ASSERT_TRUE(score.createNonPitchedNote(place, 0));
    ASSERT_TRUE(score.createNonPitchedNote(place, 3));
    const ScoreModelRange beat(place, SelectionMode::MultiSelection);
    expectDone([&] { return score.shiftOneElement(beat, Shift::Up); });
    EXPECT_EQ(articulations(), "1@7 0@3 ");
    EXPECT_FALSE(score.shiftOneElement(beat, Shift::Up)) << "nothing above the hi-hat";
    auto snare = place;
    snare.setNoteMidi(38);
    EXPECT_FALSE(score.shiftOneElement(ScoreModelRange(snare), Shift::Up)) << "the hi-hat is there";
    expectDone([&] { return score.shiftOneElement(ScoreModelRange(snare), Shift::Down); });
    EXPECT_EQ(articulations(), "1@7 3@-1 ");
}

} // namespace
