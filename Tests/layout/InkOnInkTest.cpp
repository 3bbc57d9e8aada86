// SPDX-License-Identifier: MIT
#include "support/LaidOut.h"
#include "support/SmallScore.h"
#include "support/ViolinPiece.h"

#include <ZarnLayout/draw/ZarnPolygons.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace {

using namespace zarn;
using layout::MarkKind;
using ::test::LaidOut;
using ::test::ViolinPiece;
using NoteValue = RhythmValue::NoteValue;

std::shared_ptr<Beat> beat(NoteValue value, int string, int fret)
{
    auto made = std::make_shared<Beat>(RhythmValue(value));
    auto note = std::make_shared<Note>(60 + fret);
    note->setString(string);
    note->setFret(fret);
    made->addNote(note);
    return made;
}

bool meet(const LaidOut::Mark &a, const LaidOut::Mark &b)
{
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

/// The marks of a kind in the first bar of the guitar.
std::vector<LaidOut::Mark> inFirstBar(const LaidOut &laid, MarkKind kind)
{
    std::vector<LaidOut::Mark> marks = laid.of(kind);
    marks.erase(std::remove_if(marks.begin(), marks.end(),
                               [](const LaidOut::Mark &mark) {
                                   return mark.place.bar != 0 || mark.place.track != 0;
                               }),
                marks.end());
    return marks;
}

/// Of the points along an edge, those that lie in a box.
int pointsBetween(const layout::Point &from, const layout::Point &to, const LaidOut::Mark &box)
{
    using layout::toSpaces;
    constexpr int steps = 16;
    int count = 0;
    for (int i = 0; i < steps; ++i) {
        const double part = static_cast<double>(i) / steps;
        const double x = toSpaces(from.x) + (toSpaces(to.x) - toSpaces(from.x)) * part;
        const double y = toSpaces(from.y) + (toSpaces(to.y) - toSpaces(from.y)) * part;
        count += x > box.left && x < box.right && y > box.top && y < box.bottom ? 1 : 0;
    }
    return count;
}

/// Of the outlines of marks of a kind, the points that lie in a box.
int pointsInside(const LaidOut &laid, MarkKind kind, const LaidOut::Mark &box)
{
    int count = 0;
    for (const auto &system : laid.layout->pages().at(0).systems) {
        const auto &list = system.drawing->marks;
        for (const auto &mark : list.marks())
            if (mark.kind == kind)
                for (const auto &polygon : polygonsOf(list, mark, 64))
                    for (std::size_t i = 0; i < polygon.size(); ++i)
                        count += pointsBetween(polygon[i], polygon[(i + 1) % polygon.size()], box);
    }
    return count;
}

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

/// Bends, slides and hammer-ons of a chord leave the numbers alone that stand around them.
TEST(InkOnInkTest, whatLeadsFromANumberMeetsNoOther)
{
    const PitchCurve curves[] = {{{0, 0}, {20, 4}, {40, 0}, {60, 4}}, {{0, 4}, {30, 8}, {60, 0}}};
    for (const PitchCurve &curve : curves) {
        SmallScore small;
        Beat &chord = *small.model.track(0)->bar(0)->voice(0)->beat(1);
        chord.setRhythmValue(RhythmValue(NoteValue::ThirtySecond));
        Bend bend;
        bend.type = BendType::BendNRelease;
        bend.curve = curve;
        chord.notes()[0]->setBend(bend);
        NoteMarks marks = chord.notes()[1]->marks();
        marks.setHopo(true);
        chord.notes()[1]->setMarks(marks);
        chord.notes()[1]->setFret(12);
        small.model.track(0)->bar(0)->voice(0)->removeBeat(2);
        const LaidOut laid(small.model);
        const auto frets = inFirstBar(laid, MarkKind::Fret);
        for (const MarkKind kind : {MarkKind::Bend, MarkKind::HammerOn}) {
            const auto found = inFirstBar(laid, kind);
            EXPECT_FALSE(found.empty());
            for (const auto &mark : found)
                for (const auto &fret : frets)
                    if (fret.place.beat != mark.place.beat || !mark.text.empty()) {
                        EXPECT_FALSE(meet(mark, fret)) << mark.left << " " << fret.left;
                    }
        }
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

/// Chords without strings slide as wholes: each note to the one of its rank.
TEST(InkOnInkTest, slidesOfAChordAreParallel)
{
    ViolinPiece piece;
    for (const int up : {0, 2}) {
        Beat &chord = piece.add({62 + up, 69 + up, 76 + up}, NoteValue::Half);
        for (const auto &note : chord.notes()) {
            NoteMarks marks = note->marks();
            marks.setSlideOut(up == 0 ? SlideOut::Shift : SlideOut::None);
            note->setMarks(marks);
        }
    }
    const LaidOut laid(*piece.model);
    const auto slides = laid.of(MarkKind::Slide);
    ASSERT_EQ(slides.size(), 3U);
    for (const auto &slide : slides) {
        EXPECT_NEAR(slide.bottom - slide.top, slides[0].bottom - slides[0].top, 0.01);
        for (const auto &other : slides)
            if (&other != &slide) {
                EXPECT_FALSE(meet(slide, other));
            }
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

/// Strokes across a stem keep off the accidentals of their chord; those of whole notes stand on the
/// side of their voice.
TEST(InkOnInkTest, strokesOfTremolosKeepOffNotesAndAccidentals)
{
    ViolinPiece piece(2);
    const auto tremble = [](Beat &beat) {
        BeatMarks marks = beat.marks();
        marks.setTremolo(3);
        beat.setMarks(marks);
    };
    for (const int key : {73, 75, 78, 80})
        tremble(piece.add({key}, NoteValue::Quarter));
    for (unsigned voice = 0; voice < 2; ++voice)
        tremble(piece.add({voice == 0 ? 74 : 71}, NoteValue::Whole, 0, voice, 1));
    const LaidOut laid(*piece.model);
    const auto strokes = laid.of(MarkKind::Tremolo);
    ASSERT_EQ(strokes.size(), 6U);
    EXPECT_EQ(laid.of(MarkKind::Accidental).size(), 4U);
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

/// A slide moves off the heads of another voice that stand where it would lead.
TEST(InkOnInkTest, slidesMakeWayForOtherVoices)
{
    ViolinPiece piece;
    for (const int key : {71, 74}) {
        Beat &half = piece.add({key}, NoteValue::Half);
        NoteMarks marks = half.notes()[0]->marks();
        marks.setSlideOut(key == 71 ? SlideOut::Shift : SlideOut::None);
        half.notes()[0]->setMarks(marks);
    }
    for (const int key : {60, 74, 60, 60})
        piece.add({key}, NoteValue::Quarter, 0, 1);
    const LaidOut laid(*piece.model);
    const auto slides = laid.of(MarkKind::Slide);
    ASSERT_EQ(slides.size(), 1U);
    const auto &slide = slides[0]; // upwards
    EXPECT_GT(slide.right - slide.left, 0.8);
    for (const auto &head : laid.of(MarkKind::NoteHead)) {
        const double x = (head.left + head.right) / 2;
        if (x < slide.left || x > slide.right)
            continue;
        const double part = (x - slide.left) / (slide.right - slide.left);
        const double y = slide.bottom + (slide.top - slide.bottom) * part;
        EXPECT_GT(std::abs(y - (head.top + head.bottom) / 2), 0.5) << head.left;
    }
}

/// A slur that begins or ends at rests keeps off them, however tall they are.
TEST(InkOnInkTest, slursKeepOffTheRestsAtTheirEnds)
{
    ViolinPiece piece;
    for (unsigned i = 0; i < 3; ++i) {
        const auto keys = i == 1 ? std::vector<int>{71} : std::vector<int>{};
        Beat &beat = piece.add(keys, NoteValue::HundredTwentyEighth);
        beat.setSlurredToNext(i < 2);
        beat.setSlurredToPrevious(i > 0);
    }
    const LaidOut laid(*piece.model);
    const auto slurs = laid.of(MarkKind::Slur);
    ASSERT_FALSE(slurs.empty());
    for (const auto &slur : slurs)
        for (const auto &rest : laid.of(MarkKind::Rest))
            EXPECT_FALSE(meet(slur, rest)) << slur.bottom << " " << rest.top;
}

/// A slur that is to lie below its voice keeps off the flag of the voice under it.
TEST(InkOnInkTest, slursThatAreGivenASideKeepOffFlags)
{
    ViolinPiece piece;
    const std::vector<std::vector<int>> keys = {{72, 76}, {74, 77}, {76, 79}};
    for (unsigned i = 0; i < 3; ++i) {
        Beat &beat = piece.add(keys[i], NoteValue::Eighth);
        beat.setSlurredToNext(i < 2);
        beat.setSlurredToPrevious(i > 0);
        beat.setSlurSide(SlurSide::Below);
    }
    piece.add({}, NoteValue::Eighth);
    piece.add({69}, NoteValue::Eighth, 0, 1);
    piece.add({}, NoteValue::Eighth, 0, 1);
    piece.add({}, NoteValue::Quarter, 0, 1);
    const LaidOut laid(*piece.model);
    const auto slurs = laid.of(MarkKind::Slur);
    ASSERT_EQ(slurs.size(), 1U);
    const auto flags = laid.of(MarkKind::Flag);
    ASSERT_FALSE(flags.empty());
    for (const auto &flag : flags)
        EXPECT_FALSE(meet(slurs[0], flag));
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

/// An arpeggio stops at a tie of another voice that is held through it, and goes on behind it.
TEST(InkOnInkTest, arpeggiosMakeWayForWhatIsHeldThroughThem)
{
    for (const bool isHeld : {false, true}) {
        ViolinPiece piece;
        piece.add({84}, NoteValue::Quarter);
        Beat &chord = piece.add({57, 86}, NoteValue::Half);
        chord.setArpeggio({Direction::Up, 0, {}});
        piece.add({84}, NoteValue::Quarter);
        Beat &first = piece.add({72}, NoteValue::Half, 1, 1);
        Beat &last = piece.add({72}, NoteValue::Quarter, 0, 1);
        if (isHeld)
            ViolinPiece::tie(first, last);
        const LaidOut laid(*piece.model);
        const auto arpeggios = laid.of(MarkKind::Arpeggio);
        ASSERT_EQ(arpeggios.size(), isHeld ? 2U : 1U);
        for (const auto &arpeggio : arpeggios)
            EXPECT_EQ(pointsInside(laid, MarkKind::Tie, arpeggio), 0);
        EXPECT_LT(arpeggios.front().top, -2);
        EXPECT_GT(arpeggios.back().bottom, 5);
    }
}

/// Ties keep off the dots of a repeat that begins between their notes.
TEST(InkOnInkTest, tiesKeepOffTheDotsOfRepeats)
{
    for (const int key : {65, 67, 69, 71}) {
        SCOPED_TRACE(key);
        ViolinPiece piece(2);
        piece.model->masterTrack()->masterBar(1)->setRepeatStart(true);
        Beat &first = piece.add({key, key + 5}, NoteValue::Whole);
        Beat &last = piece.add({key, key + 5}, NoteValue::Whole, 0, 0, 1);
        ViolinPiece::tie(first, last, 0);
        ViolinPiece::tie(first, last, 1);
        const LaidOut laid(*piece.model);
        const auto dots = laid.of(MarkKind::RepeatDots);
        ASSERT_EQ(dots.size(), 2U);
        ASSERT_EQ(laid.of(MarkKind::Tie).size(), 2U);
        for (const auto &dot : dots)
            EXPECT_EQ(pointsInside(laid, MarkKind::Tie, dot), 0);
    }
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

/// A slide that comes from nowhere keeps off the stems of other voices beside its note.
TEST(InkOnInkTest, shortSlidesKeepOffTheStemsOfOtherVoices)
{
    for (const int other : {60, 62, 64, 66, 69, 71, 74, 76}) {
        SCOPED_TRACE(other);
        ViolinPiece piece;
        Beat &upper = piece.add({67}, NoteValue::Half);
        NoteMarks marks = upper.notes()[0]->marks();
        marks.setSlideOut(SlideOut::Downwards);
        upper.notes()[0]->setMarks(marks);
        piece.add({72}, NoteValue::Half);
        for (unsigned voice = 1; voice < 3; ++voice) {
            piece.add({voice == 1 ? 53 : other}, NoteValue::Half, 0, voice);
            piece.add({voice == 1 ? 53 : 72}, NoteValue::Half, 0, voice);
        }
        const LaidOut laid(*piece.model);
        const auto slides = laid.of(MarkKind::Slide);
        ASSERT_EQ(slides.size(), 1U);
        EXPECT_GT(slides[0].right - slides[0].left, 1);
        for (const MarkKind kind : {MarkKind::Stem, MarkKind::NoteHead})
            for (const auto &mark : laid.of(kind))
                EXPECT_FALSE(meet(slides[0], mark)) << mark.left;
    }
}

/// A slur that can neither pass between rests nor along the notes leads around all of them.
TEST(InkOnInkTest, slursLeadAroundWhatTheyCannotPass)
{
    for (const NoteValue value : {NoteValue::ThirtySecond, NoteValue::TwoHundredFiftySixth})
        for (const int key : {50, 71, 89}) {
            SCOPED_TRACE(key);
            ViolinPiece piece;
            for (unsigned i = 0; i < 3; ++i) {
                const bool rests = i != 1;
                Beat &beat = piece.add(rests ? std::vector<int>{} : std::vector<int>{key},
                                       rests ? value : NoteValue::Half);
                beat.setSlurredToNext(i < 2);
                beat.setSlurredToPrevious(i > 0);
                for (const unsigned voice : {1U, 2U})
                    piece.add(i == 0 ? std::vector<int>{} : std::vector<int>{voice == 1 ? 74 : 77},
                              value, 2, voice);
            }
            const LaidOut laid(*piece.model);
            ASSERT_EQ(laid.of(MarkKind::Slur).size(), 1U);
            for (const MarkKind kind : {MarkKind::Rest, MarkKind::NoteHead})
                for (const auto &mark : laid.of(kind))
                    EXPECT_EQ(pointsInside(laid, MarkKind::Slur, mark), 0) << mark.left;
        }
}

/// A tie of which nobody knows where it comes from keeps off the flags in front of its note.
TEST(InkOnInkTest, tiesKeepOffTheFlagsInFrontOfThem)
{
    for (const int key : {74, 79, 84, 89, 94, 99}) {
        SCOPED_TRACE(key);
        ViolinPiece piece;
        piece.add({key}, NoteValue::TwoHundredFiftySixth, 1);
        piece.add({71}, NoteValue::Half).notes()[0]->setTied(true);
        const LaidOut laid(*piece.model);
        ASSERT_EQ(laid.of(MarkKind::Tie).size(), 1U);
        for (const auto &flag : laid.of(MarkKind::Flag))
            EXPECT_EQ(pointsInside(laid, MarkKind::Tie, flag), 0);
    }
}

/// A slide into a note keeps off the head of another voice that stands where it would begin.
TEST(InkOnInkTest, shortSlidesPassByTheHeadsInTheirWay)
{
    for (const int other : {71, 72, 74}) {
        SCOPED_TRACE(other);
        ViolinPiece piece;
        piece.add({other, other + 4}, NoteValue::DWhole);
        Beat &lower = piece.add({72}, NoteValue::DWhole, 0, 1);
        NoteMarks marks = lower.notes()[0]->marks();
        marks.setSlideIn(SlideIn::FromBelow);
        lower.notes()[0]->setMarks(marks);
        const LaidOut laid(*piece.model);
        const auto slides = laid.of(MarkKind::Slide);
        ASSERT_EQ(slides.size(), 1U);
        for (const auto &head : laid.of(MarkKind::NoteHead))
            EXPECT_FALSE(meet(slides[0], head)) << head.left;
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

/// A tie ends in front of the arpeggio of its second chord, however close the notes are.
TEST(InkOnInkTest, tiesEndInFrontOfArpeggios)
{
    ViolinPiece piece;
    for (unsigned i = 0; i < 24; ++i) {
        Beat &chord = piece.add({62, 69, 76}, NoteValue::ThirtySecond);
        chord.setArpeggio({Direction::Up, 0, {}});
        for (const auto &note : chord.notes()) {
            note->setTied(i > 0);
            note->setTieOrigin(i < 23);
        }
    }
    const LaidOut laid(*piece.model);
    ASSERT_EQ(laid.of(MarkKind::Tie).size(), 69U);
    for (const auto &arpeggio : laid.of(MarkKind::Arpeggio))
        EXPECT_EQ(pointsInside(laid, MarkKind::Tie, arpeggio), 0) << arpeggio.left;
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
