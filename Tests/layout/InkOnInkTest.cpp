// SPDX-License-Identifier: MIT
#include "support/MeetingInk.h"
#include "support/SmallScore.h"
#include "support/ViolinPiece.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

using namespace zarn;
using layout::MarkKind;
using ::test::beat;
using ::test::inFirstBar;
using ::test::LaidOut;
using ::test::meet;
using ::test::pointsInside;
using ::test::ViolinPiece;
using NoteValue = RhythmValue::NoteValue;

} // namespace

/// Accidentals stand in front of the parentheses of ghost notes, dots behind them.
TEST(InkOnInkTest, parenthesesOfHeadsAreClear)
{
    ViolinPiece piece;
    piece.add({61}, NoteValue::Half, 1).notes()[0]->setAntiAccent(AntiAccent::Normal);
    const LaidOut laid(*piece.model);
    const auto parentheses = laid.of(MarkKind::Enclosure);
    ASSERT_EQ(parentheses.size(), 2U);
    EXPECT_LT(laid.of(MarkKind::Accidental).at(0).right, parentheses[0].left);
    EXPECT_GT(laid.of(MarkKind::AugmentationDot).at(0).left, parentheses[1].right);
}

/// Two voices on one string stand beside one another, which is said; a number that they share is
/// one.
TEST(InkOnInkTest, voicesOnOneStringStandSideBySide)
{
    for (const int fret : {0, 12}) {
        SCOPED_TRACE(fret);
        SmallScore small;
        small.model.track(0)->bar(0)->ensureVoice(1)->addBeat(beat(NoteValue::Half, 0, fret));
        const LaidOut laid(small.model);
        std::vector<LaidOut::Mark> first;
        for (const auto &mark : inFirstBar(laid, MarkKind::Fret))
            if (mark.place.beat == 0)
                first.push_back(mark);
        ASSERT_EQ(first.size(), 2U);
        EXPECT_EQ(first[0].top, first[1].top);
        EXPECT_EQ(meet(first[0], first[1]), fret == 0);
        const auto &problems = laid.layout->problems();
        EXPECT_EQ(std::any_of(problems.begin(), problems.end(),
                              [](const auto &problem) {
                                  return problem.message == "The string has several notes at once.";
                              }),
                  fret != 0);
    }
}

/// A rest finds its place when the beams of the other voices have theirs.
TEST(InkOnInkTest, restsKeepOffTheBeamsOfOtherVoices)
{
    const auto model = std::make_shared<ScoreModel>();
    model->createAndInsertTrack(0, InstrumentSet::violin);
    model->track(0)->setChosenNotations(TrackNotations());
    model->insertEmptyBarColumns(0, 1);
    Bar &bar = *model->track(0)->bar(0);
    for (unsigned i = 0; i < 8; ++i) {
        bar.ensureVoice(0)->addBeat(std::make_shared<Beat>(RhythmValue(NoteValue::Eighth)));
        auto sounding = std::make_shared<Beat>(RhythmValue(NoteValue::Eighth));
        sounding->addNote(std::make_shared<Note>(88)); // far above: its beam is in the staff
        bar.ensureVoice(1)->addBeat(sounding);
    }
    const LaidOut laid(*model);
    const auto rests = laid.of(MarkKind::Rest);
    EXPECT_EQ(rests.size(), 8U);
    for (const auto &rest : rests)
        for (const MarkKind kind : {MarkKind::Beam, MarkKind::Stem, MarkKind::NoteHead})
            for (const auto &mark : laid.of(kind))
                EXPECT_FALSE(meet(rest, mark));
}

/// Where rhythm is written at tablature, a note without a stem has its dots beside the number.
TEST(InkOnInkTest, dotsOfWholeNotesStandBesideTheirNumbers)
{
    SmallScore small;
    TrackNotations notations;
    notations.standard = false;
    notations.tablature = true;
    small.model.track(0)->setChosenNotations(notations);
    Voice &voice = *small.model.track(0)->bar(5)->ensureVoice(0);
    voice.addBeat(beat(NoteValue::Whole, 5, 3));
    voice.beat(0)->setRhythmValue(RhythmValue(NoteValue::Whole, 2));
    const LaidOut laid(small.model);
    unsigned dots = 0;
    for (const auto &dot : laid.of(MarkKind::AugmentationDot)) {
        ++dots;
        for (const auto &fret : laid.of(MarkKind::Fret))
            if (fret.place.bar == dot.place.bar && fret.place.track == dot.place.track) {
                EXPECT_GT(dot.left, fret.right);
                EXPECT_LT(dot.left, fret.right + 2);
                EXPECT_GT(dot.bottom, fret.top);
            }
    }
    EXPECT_EQ(dots, 2U);
}

/// Strokes between two notes stay in their bar, also where the second note is in the next one.
TEST(InkOnInkTest, tremolosEndAtTheBarLine)
{
    ViolinPiece piece(2);
    for (unsigned bar = 0; bar < 2; ++bar)
        for (unsigned half = 0; half < 2; ++half) {
            Beat &made = piece.add({72}, NoteValue::Half, 0, 0, bar);
            BeatMarks marks = made.marks();
            marks.setTremoloToNext(bar == 0 && half == 1 ? 3 : 0);
            made.setMarks(marks);
        }
    piece.model->masterTrack()->masterBars()[1]->setConcertKeySignature(
        KeySignature(-6, true, true));
    const LaidOut laid(*piece.model);
    const auto lines = laid.of(MarkKind::BarLine);
    const auto strokes = laid.of(MarkKind::Tremolo);
    ASSERT_EQ(strokes.size(), 3U);
    ASSERT_FALSE(lines.empty());
    for (const auto &stroke : strokes)
        EXPECT_LT(stroke.right, lines.front().left);
}

/// The sign that stands for two bars makes way for a clef in front of the line between them.
TEST(InkOnInkTest, theSignForTwoBarsKeepsOffClefs)
{
    ViolinPiece piece(4);
    for (unsigned bar = 0; bar < 4; ++bar)
        piece.add({72}, NoteValue::Whole, 0, 0, bar);
    Track &track = *piece.model->track(0);
    track.bar(2)->setSimileMark(SimileMark::FirstOfDouble);
    track.bar(3)->setSimileMark(SimileMark::SecondOfDouble);
    track.bar(2)->setClefChanges({{utils::rational(1, 2), ClefType::F4}});
    const LaidOut laid(*piece.model);
    const auto similes = laid.of(MarkKind::Simile);
    ASSERT_EQ(similes.size(), 1U);
    EXPECT_GT(laid.of(MarkKind::Clef).size(), 1U);
    for (const auto &clef : laid.of(MarkKind::Clef))
        EXPECT_FALSE(meet(similes.front(), clef));
}

/// The sign that stands for two bars makes way for the dots of a repeat between them, and for a
/// meter.
TEST(InkOnInkTest, theSignForTwoBarsKeepsOffRepeatsAndMeters)
{
    for (const bool isRepeat : {true, false}) {
        ViolinPiece piece(4);
        for (unsigned bar = 0; bar < 4; ++bar)
            piece.add({72}, NoteValue::Whole, 0, 0, bar);
        Track &track = *piece.model->track(0);
        track.bar(2)->setSimileMark(SimileMark::FirstOfDouble);
        track.bar(3)->setSimileMark(SimileMark::SecondOfDouble);
        MasterBar &between = *piece.model->masterTrack()->masterBars()[isRepeat ? 2 : 3];
        if (isRepeat)
            between.setRepeatCount(2);
        else
            between.setTimeSignature(TimeSignature(3, 4));
        const LaidOut laid(*piece.model);
        const auto similes = laid.of(MarkKind::Simile);
        ASSERT_EQ(similes.size(), 1U);
        const auto others = laid.of(isRepeat ? MarkKind::RepeatDots : MarkKind::TimeSignature);
        ASSERT_FALSE(others.empty());
        for (const auto &mark : others)
            EXPECT_FALSE(meet(similes.front(), mark));
    }
}

/// A long syllable keeps off the next one of its line, however many notes of another voice come in
/// between.
TEST(InkOnInkTest, syllablesKeepOffEachOtherOverNotesOfOtherVoices)
{
    ViolinPiece piece;
    for (const char *text : {"Donaudampfschifffahrtsgesellschaftskapitaen", "ruft"}) {
        Syllable syllable;
        syllable.text = text;
        piece.add({76}, NoteValue::Half).setLyrics({syllable});
    }
    for (unsigned i = 0; i < 8; ++i)
        piece.add({60}, NoteValue::Eighth, 0, 1);
    const LaidOut laid(*piece.model);
    const auto words = laid.of(MarkKind::Lyric);
    ASSERT_EQ(words.size(), 2U);
    EXPECT_GT(words[1].left, words[0].right + 0.3);
    EXPECT_GE(words[0].left, 0); // of the margin
    EXPECT_EQ(words[0].y, words[1].y);
}

/// Strokes across a stem keep off the accidentals of their chord, under beams as well; those of
/// whole notes stand on the side of their voice.
TEST(InkOnInkTest, strokesOfTremolosKeepOffNotesAndAccidentals)
{
    ViolinPiece piece(3);
    const auto tremble = [](Beat &beat) {
        BeatMarks marks = beat.marks();
        marks.setTremolo(3);
        beat.setMarks(marks);
    };
    for (const int key : {73, 75, 78, 80})
        tremble(piece.add({key}, NoteValue::Quarter));
    for (unsigned voice = 0; voice < 2; ++voice)
        tremble(piece.add({voice == 0 ? 74 : 71}, NoteValue::Whole, 0, voice, 1));
    for (const int key : {73, 75, 78, 80})
        tremble(piece.add({key}, NoteValue::Eighth, 0, 0, 2));
    const LaidOut laid(*piece.model);
    const auto strokes = laid.of(MarkKind::Tremolo);
    ASSERT_EQ(strokes.size(), 10U);
    EXPECT_EQ(laid.of(MarkKind::Accidental).size(), 8U);
    EXPECT_FALSE(laid.of(MarkKind::Beam).empty());
    for (const auto &stroke : strokes)
        for (const MarkKind kind : {MarkKind::Accidental, MarkKind::NoteHead})
            for (const auto &mark : laid.of(kind))
                EXPECT_FALSE(meet(stroke, mark)) << stroke.left << " " << mark.left;
}

/// Strokes between two notes make way for the notes of another voice that sound meanwhile.
TEST(InkOnInkTest, strokesBetweenNotesMakeWayForOtherVoices)
{
    ViolinPiece piece;
    Beat &first = piece.add({77}, NoteValue::Half);
    BeatMarks marks = first.marks();
    marks.setTremoloToNext(3);
    first.setMarks(marks);
    piece.add({79}, NoteValue::Half);
    for (unsigned i = 0; i < 4; ++i)
        piece.add({i == 1 ? 88 : 64}, NoteValue::Quarter, 0, 1);
    const LaidOut laid(*piece.model);
    const auto strokes = laid.of(MarkKind::Tremolo);
    ASSERT_EQ(strokes.size(), 3U);
    for (const auto &stroke : strokes)
        for (const MarkKind kind : {MarkKind::NoteHead, MarkKind::Stem})
            for (const auto &mark : laid.of(kind))
                EXPECT_FALSE(meet(stroke, mark)) << stroke.left << " " << mark.left;
}

/// Between the staves of a track a bar line stops at words that are too long to step aside, and
/// goes on behind them: on a page with room for all of that too.
TEST(InkOnInkTest, barLinesStopAtWords)
{
    const auto model = std::make_shared<ScoreModel>();
    model->createAndInsertTrack(0, InstrumentSet::acousticPiano);
    model->track(0)->setStaffCount(2);
    model->track(0)->setChosenNotations(TrackNotations());
    model->insertEmptyBarColumns(0, 40);
    for (unsigned bar = 0; bar < 40; ++bar) {
        const auto whole = std::make_shared<Beat>(RhythmValue(NoteValue::Whole));
        whole->addNote(std::make_shared<Note>(50));
        if (bar % 10 == 0)
            whole->setText("very slowly and with much feeling, as if from afar");
        model->track(0)->staff(1)->bars()[bar]->ensureVoice(0)->addBeat(whole);
    }
    const LaidOut laid(*model);
    const auto words = laid.of(MarkKind::Text);
    ASSERT_EQ(words.size(), 4U);
    const auto lines = laid.of(MarkKind::BarLine);
    unsigned interrupted = 0;
    for (const auto &word : words)
        for (const auto &line : lines) {
            if (line.system != word.system)
                continue;
            EXPECT_FALSE(meet(word, line)) << word.top << " " << line.top;
            const bool isBelow = line.left > word.left && line.right < word.right
                && line.top > word.bottom && line.bottom > word.bottom;
            interrupted += isBelow ? 1 : 0;
        }
    EXPECT_GE(interrupted, 4U);
}

/// Grace notes of two voices in front of one note stand side by side, like the notes of voices.
TEST(InkOnInkTest, graceNotesOfTwoVoicesKeepOffEachOther)
{
    ViolinPiece piece;
    for (unsigned voice = 0; voice < 2; ++voice) {
        piece.add({voice == 0 ? 71 : 72}, NoteValue::Eighth, 1, voice)
            .setGraceType(GraceType::BeforeBeat);
        piece.add({voice == 0 ? 79 : 64}, NoteValue::Whole, 0, voice);
    }
    const LaidOut laid(*piece.model);
    std::vector<LaidOut::Mark> graces;
    for (const MarkKind kind : {MarkKind::NoteHead, MarkKind::AugmentationDot})
        for (const auto &mark : laid.of(kind))
            if (mark.place.beat == 0)
                graces.push_back(mark);
    ASSERT_EQ(graces.size(), 4U);
    for (std::size_t i = 0; i < graces.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(meet(graces[i], graces[j])) << i << " " << j;
}

/// The dots of a note end before the stem of the next one, however far that reaches for its beam.
TEST(InkOnInkTest, dotsKeepOffTheStemsThatBeamsMakeLonger)
{
    for (const NoteValue value : {NoteValue::Sixteenth, NoteValue::ThirtySecond})
        for (const int high : {91, 95, 103}) {
            SCOPED_TRACE(high);
            ViolinPiece piece;
            piece.add({57}, value, 3);
            piece.add({high}, value);
            const LaidOut laid(*piece.model);
            const auto dots = laid.of(MarkKind::AugmentationDot);
            ASSERT_EQ(dots.size(), 3U);
            EXPECT_FALSE(laid.of(MarkKind::Beam).empty());
            for (const auto &stem : laid.of(MarkKind::Stem))
                for (const auto &dot : dots)
                    EXPECT_FALSE(meet(stem, dot)) << stem.left << " " << dot.left;
        }
}

/// Beams over a clef that changes between their notes leave it room.
TEST(InkOnInkTest, beamsKeepOffClefs)
{
    for (const NoteValue value : {NoteValue::Eighth, NoteValue::SixtyFourth})
        for (const int high : {55, 60, 65, 72, 79})
            for (const int low : {36, 41, 45, 50}) {
                SCOPED_TRACE(std::to_string(high) + " " + std::to_string(low));
                ViolinPiece piece;
                for (unsigned i = 0; i < 4; ++i)
                    piece.add({i < 2 ? high : low}, value);
                piece.model->track(0)->bar(0)->setClefChanges(
                    {{utils::rational(1, value == NoteValue::Eighth ? 1 : 8), ClefType::F4}});
                const LaidOut laid(*piece.model);
                const auto clefs = laid.of(MarkKind::Clef);
                ASSERT_EQ(clefs.size(), 2U);
                ASSERT_FALSE(laid.of(MarkKind::Beam).empty());
                for (const auto &clef : clefs)
                    EXPECT_EQ(pointsInside(laid, MarkKind::Beam, clef), 0);
            }
}

/// Strokes through the stems of a tablature keep off its numbers and the dots, and dots of two
/// voices off one another.
TEST(InkOnInkTest, signsAtTheStemsOfTablatureHaveRoom)
{
    for (const NoteValue value : {NoteValue::Half, NoteValue::Quarter, NoteValue::SixtyFourth}) {
        SmallScore small;
        TrackNotations notations;
        notations.standard = false;
        notations.tablature = true;
        small.model.track(0)->setChosenNotations(notations);
        for (const unsigned voice : {0U, 1U}) {
            const auto made = beat(value, 5 - static_cast<int>(voice), 3);
            made->setRhythmValue(RhythmValue(value, 2));
            BeatMarks marks = made->marks();
            marks.setTremolo(voice == 0 ? 4 : 0);
            made->setMarks(marks);
            small.model.track(0)->bar(5)->ensureVoice(voice)->addBeat(made);
        }
        const LaidOut laid(small.model);
        const auto strokes = laid.of(MarkKind::Tremolo);
        const auto dots = laid.of(MarkKind::AugmentationDot);
        ASSERT_EQ(strokes.size(), 1U);
        ASSERT_EQ(dots.size(), 4U);
        for (const auto &fret : laid.of(MarkKind::Fret))
            EXPECT_FALSE(fret.system == strokes[0].system && meet(fret, strokes[0]));
        for (std::size_t i = 0; i < dots.size(); ++i) {
            EXPECT_FALSE(dots[i].place.voice == 0 && meet(dots[i], strokes[0]));
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(meet(dots[i], dots[j])) << i << " " << j;
        }
    }
}

/// The name of a section that is longer than the line is written smaller.
TEST(InkOnInkTest, namesOfSectionsFitTheirLine)
{
    ViolinPiece piece(2);
    Section section;
    section.letter = "In the very first place";
    for (unsigned i = 0; i < 12; ++i)
        section.text += "comes a name that does not end ";
    piece.model->masterTrack()->masterBars()[0]->setSection(section);
    const LaidOut laid(*piece.model);
    const auto names = laid.of(MarkKind::Section);
    ASSERT_EQ(names.size(), 2U);
    const auto lines = laid.of(MarkKind::StaffLine);
    EXPECT_LT(names[0].right, names[1].left);
    EXPECT_LT(names[1].right, lines.at(0).right + 0.5);
}

/// A rest for a whole bar has room between its lines and their dots, however narrow its bar is to
/// be.
TEST(InkOnInkTest, restsOfNarrowBarsKeepOffTheirLines)
{
    ViolinPiece piece(8);
    for (unsigned bar = 0; bar < 8; ++bar) {
        MasterBar &column = *piece.model->masterTrack()->masterBars()[bar];
        column.setLayoutRatio(0.1F);
        column.setRepeatStart(bar % 2 == 0);
        column.setRepeatCount(bar % 2 == 0 ? 0 : 2);
    }
    const LaidOut laid(*piece.model);
    const auto rests = laid.of(MarkKind::Rest);
    ASSERT_EQ(rests.size(), 8U);
    for (const auto &rest : rests)
        for (const MarkKind kind : {MarkKind::BarLine, MarkKind::RepeatDots})
            for (const auto &mark : laid.of(kind))
                EXPECT_FALSE(meet(rest, mark)) << rest.left << " " << mark.left;
}

/// The short beams of a quick note that reach over the head of the next one are above that.
TEST(InkOnInkTest, shortBeamsAreClearOfTheHeadsThatTheyReachOver)
{
    ViolinPiece piece;
    for (const auto &[key, value] :
         {std::pair(62, NoteValue::HundredTwentyEighth), std::pair(69, NoteValue::Eighth)}) {
        Beat &beat = piece.add({key}, value);
        beat.setStemOrientation(ZarnStemOrientation::Upward);
        beat.setBeamMode(BeamMode::Join);
    }
    const LaidOut laid(*piece.model);
    ASSERT_GE(laid.of(MarkKind::Beam).size(), 5U);
    for (const auto &head : laid.of(MarkKind::NoteHead))
        EXPECT_EQ(pointsInside(laid, MarkKind::Beam, head), 0);
}
