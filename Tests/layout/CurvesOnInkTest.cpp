// SPDX-License-Identifier: MIT
#include "support/MeetingInk.h"
#include "support/SmallScore.h"
#include "support/ViolinPiece.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
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

/// Bends, slides and hammer-ons of a chord leave the numbers alone that stand around them.
TEST(CurvesOnInkTest, whatLeadsFromANumberMeetsNoOther)
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

/// Chords without strings slide as wholes: each note to the one of its rank.
TEST(CurvesOnInkTest, slidesOfAChordAreParallel)
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

/// A slide moves off the heads of another voice that stand where it would lead.
TEST(CurvesOnInkTest, slidesMakeWayForOtherVoices)
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
TEST(CurvesOnInkTest, slursKeepOffTheRestsAtTheirEnds)
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
TEST(CurvesOnInkTest, slursThatAreGivenASideKeepOffFlags)
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

/// An arpeggio stops at a tie of another voice that is held through it, and goes on behind it.
TEST(CurvesOnInkTest, arpeggiosMakeWayForWhatIsHeldThroughThem)
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
TEST(CurvesOnInkTest, tiesKeepOffTheDotsOfRepeats)
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

/// A slide that comes from nowhere keeps off the stems of other voices beside its note.
TEST(CurvesOnInkTest, shortSlidesKeepOffTheStemsOfOtherVoices)
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
TEST(CurvesOnInkTest, slursLeadAroundWhatTheyCannotPass)
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
TEST(CurvesOnInkTest, tiesKeepOffTheFlagsInFrontOfThem)
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
TEST(CurvesOnInkTest, shortSlidesPassByTheHeadsInTheirWay)
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

/// A tie ends in front of the arpeggio of its second chord, however close the notes are.
TEST(CurvesOnInkTest, tiesEndInFrontOfArpeggios)
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

/// A slur above that leads to an inner voice ends outside of the outer one.
TEST(CurvesOnInkTest, slursBetweenVoicesLeadOutsideOfBoth)
{
    ViolinPiece piece;
    Beat &from = piece.add({70, 74}, NoteValue::Half);
    piece.add({72}, NoteValue::Half);
    piece.add({62, 65}, NoteValue::Half, 0, 1);
    Beat &to = piece.add({64, 67}, NoteValue::Half, 0, 1);
    from.setSlurEnds({{1, true, SlurLine::Solid, SlurSide::Above}});
    to.setSlurEnds({{1, false}});
    const LaidOut laid(*piece.model);
    const auto slurs = laid.of(MarkKind::Slur);
    ASSERT_EQ(slurs.size(), 1U);
    for (const auto &head : laid.of(MarkKind::NoteHead))
        if (head.place.beat == 1) {
            EXPECT_LT(slurs[0].bottom, head.top);
        }
}
