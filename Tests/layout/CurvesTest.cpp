// SPDX-License-Identifier: MIT
#include "support/LaidOut.h"
#include "support/ScoreFiles.h"
#include "support/SmallScore.h"
#include "support/ViolinPiece.h"

#include <ZarnLayout/draw/ZarnPolygons.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace {

using namespace zarn;
using layout::MarkKind;
using ::test::LaidOut;
using Piece = ::test::ViolinPiece;
using NoteValue = RhythmValue::NoteValue;

} // namespace

TEST(CurvesTest, tiesBowAwayFromStemsAndVoicesFromEachOther)
{
    for (const auto &[key, isAbove] : {std::pair<int, bool>{64, false}, {76, true}}) {
        Piece piece;
        Beat &first = piece.add({key}, NoteValue::Half);
        Piece::tie(first, piece.add({key}, NoteValue::Half));
        const LaidOut laid(*piece.model);
        const auto ties = laid.of(MarkKind::Tie);
        ASSERT_EQ(ties.size(), 1U);
        const auto head = laid.of(MarkKind::NoteHead).front();
        EXPECT_EQ(ties[0].bottom < head.y, isAbove);
        EXPECT_EQ(ties[0].top > head.y, !isAbove);
        EXPECT_NEAR(ties[0].left, head.left + (head.right - head.left) * 0.62, 0.02);
    }
    Piece piece;
    for (unsigned voice = 0; voice < 2; ++voice) {
        const int key = voice == 0 ? 76 : 65;
        Beat &first = piece.add({key}, NoteValue::Half, 0, voice);
        Piece::tie(first, piece.add({key}, NoteValue::Half, 0, voice));
    }
    const LaidOut laid(*piece.model);
    const auto ties = laid.of(MarkKind::Tie);
    ASSERT_EQ(ties.size(), 2U);
    EXPECT_LT(ties[0].bottom, 0.5);
    EXPECT_GT(ties[1].top, 3.5);
}

/// Ties of three voices lie as those of one chord do: by the height of their heads, each clear of
/// the others. The middle voice, whose notes point upwards, has its tie below.
TEST(CurvesTest, tiesOfThreeVoicesLieAsInAChord)
{
    Piece piece(2);
    const std::vector<int> keys = {71, 74, 67};
    for (unsigned voice = 0; voice < 3; ++voice) {
        Beat &first = piece.add({keys[voice]}, NoteValue::Whole, 0, voice);
        Piece::tie(first, piece.add({keys[voice]}, NoteValue::Whole, 0, voice, 1));
    }
    const LaidOut laid(*piece.model);
    const auto ties = laid.of(MarkKind::Tie);
    const auto heads = laid.of(MarkKind::NoteHead);
    ASSERT_EQ(ties.size(), 3U);
    for (unsigned voice = 0; voice < 3; ++voice) {
        const auto head = std::find_if(heads.begin(), heads.end(), [&](const auto &other) {
            return other.place.voice == static_cast<int>(voice);
        });
        const double middle = (ties[voice].top + ties[voice].bottom) / 2;
        EXPECT_EQ(middle < head->y, voice == 1) << "voice " << voice;
        for (unsigned other = 0; other < voice; ++other)
            EXPECT_GT(std::abs(ties[other].top - ties[voice].top), 0.5) << other << " " << voice;
    }
}

/// A tie may lead from one voice to another: it is one curve, not two that end nowhere.
TEST(CurvesTest, tiesFindTheirEndsInOtherVoices)
{
    Piece piece(2);
    piece.add({76}, NoteValue::Whole);
    Beat &from = piece.add({65}, NoteValue::Whole, 0, 1);
    Beat &to = piece.add({65}, NoteValue::Whole, 0, 0, 1);
    Piece::tie(from, to);
    const LaidOut laid(*piece.model);
    const auto ties = laid.of(MarkKind::Tie);
    const auto heads = laid.of(MarkKind::NoteHead);
    ASSERT_EQ(ties.size(), 1U);
    EXPECT_LT(ties[0].left, heads[1].right + 0.5);
    EXPECT_GT(ties[0].right, heads.back().left - 0.5);
}

/// The tie of the lower note of an octave crosses the stems of another voice: it neither leaves its
/// head nor bows like a slur to get around them.
TEST(CurvesTest, tiesStayAtTheirHeadsAcrossStems)
{
    Piece piece(2);
    Beat &octave = piece.add({72, 84}, NoteValue::Half, 1);
    Beat &end = piece.add({72, 84}, NoteValue::Half, 1, 0, 1);
    for (unsigned note = 0; note < 2; ++note)
        Piece::tie(octave, end, note);
    for (const std::vector<int> &keys : {std::vector<int>{}, {74, 81}, {74, 81}})
        piece.add(keys, NoteValue::Quarter, 0, 1);
    piece.add({65}, NoteValue::Quarter, 0, 2);
    for (int i = 0; i < 2; ++i)
        piece.add({}, NoteValue::Quarter, 0, 2);
    const LaidOut laid(*piece.model);
    const auto ties = laid.of(MarkKind::Tie);
    ASSERT_EQ(ties.size(), 2U);
    for (const auto &head : laid.of(MarkKind::NoteHead))
        for (const auto &tie : ties)
            if (tie.place == head.place) {
                EXPECT_LT(tie.bottom, head.bottom + 1.5);
                EXPECT_GT(tie.top, head.top - 1.5);
            }
}

/// Ties and slurs lie on no head, rest, dot or accidental, by the outlines of both.
TEST(CurvesTest, curvesLieOnNoInk)
{
    for (const std::string &path : scoreFiles()) {
        SCOPED_TRACE(path);
        const LaidOut laid(*readScore(path));
        const layout::Layout &sheets = *laid.layout;
        for (const auto &page : sheets.pages())
            for (const auto &system : page.systems) {
                const auto &list = system.drawing->marks;
                std::vector<layout::Box> heads;
                for (const auto &mark : list.marks())
                    if (mark.kind == MarkKind::NoteHead || mark.kind == MarkKind::AugmentationDot)
                        heads.push_back(list.box(mark, sheets.font()));
                std::sort(
                    heads.begin(), heads.end(),
                    [](const layout::Box &a, const layout::Box &b) { return a.left < b.left; });
                for (const auto &mark : list.marks()) {
                    if (mark.kind != MarkKind::Tie && mark.kind != MarkKind::Slur)
                        continue;
                    const auto box = list.box(mark, sheets.font());
                    const auto polygons = polygonsOf(list, mark, 24);
                    for (const layout::Box &head : heads) {
                        if (head.left > box.right)
                            break;
                        // The middle of a head, which its ink fills whatever its shape is.
                        const double x = (head.left + head.right) / 2.0;
                        const double y = (head.top + head.bottom) / 2.0;
                        const double width = (head.right - head.left) * 0.3;
                        const double height = (head.bottom - head.top) * 0.3;
                        for (const auto &polygon : polygons)
                            for (const layout::Point &point : polygon)
                                EXPECT_FALSE(std::abs(point.x - x) < width
                                             && std::abs(point.y - y) < height)
                                    << "bar " << mark.place.bar << ", track " << mark.place.track;
                    }
                }
            }
    }
}

/// Among three voices, the slur of the lowest leads below the notes of the others, whatever its
/// number is.
TEST(CurvesTest, slursOfOuterVoicesStayOutside)
{
    Piece piece(2);
    for (unsigned bar = 0; bar < 2; ++bar)
        for (unsigned voice = 0; voice < 3; ++voice) {
            Beat &beat =
                piece.add({76 - 5 * static_cast<int>(voice)}, NoteValue::Whole, 0, voice, bar);
            if (voice == 2 && bar == 0)
                beat.setSlurredToNext(true);
            if (voice == 2 && bar == 1)
                beat.setSlurredToPrevious(true);
        }
    const LaidOut laid(*piece.model);
    const auto slurs = laid.of(MarkKind::Slur);
    ASSERT_EQ(slurs.size(), 1U);
    for (const auto &head : laid.of(MarkKind::NoteHead))
        EXPECT_GT(slurs[0].bottom, head.bottom);
}

/// A slur from a grace note runs beside the heads, whatever the stem of the main note.
TEST(CurvesTest, slursOfGraceNotesStayAtTheHeads)
{
    for (const int key : {67, 76}) {
        Piece piece;
        Beat &grace = piece.add({key + 2}, NoteValue::Eighth);
        grace.setGraceType(GraceType::BeforeBeat);
        grace.setSlurredToNext(true);
        piece.add({key}, NoteValue::Whole).setSlurredToPrevious(true);
        Piece down;
        Beat &other = down.add({key + 2}, NoteValue::Eighth);
        other.setGraceType(GraceType::BeforeBeat);
        other.setSlurredToNext(true);
        down.add({key}, NoteValue::Quarter).setSlurredToPrevious(true);
        for (const Piece *each : {&piece, &down}) {
            const LaidOut laid(*each->model);
            const auto slurs = laid.of(MarkKind::Slur);
            const auto heads = laid.of(MarkKind::NoteHead);
            ASSERT_EQ(slurs.size(), 1U);
            ASSERT_EQ(heads.size(), 2U);
            EXPECT_LT(slurs[0].bottom, std::max(heads[0].bottom, heads[1].bottom) + 1.5) << key;
            EXPECT_GT(slurs[0].top, std::min(heads[0].top, heads[1].top)) << key;
            EXPECT_LT(slurs[0].right, heads[1].right) << key;
        }
    }
}

/// On the side that they are given, with a number or without; else away from the stems.
TEST(CurvesTest, slursLieOnTheSideThatTheyAreGiven)
{
    for (const int key : {64, 79})
        for (const bool isNumbered : {false, true})
            for (const SlurSide side : {SlurSide::Auto, SlurSide::Above, SlurSide::Below}) {
                SCOPED_TRACE(std::to_string(key) + " " + markSideToString(side)
                             + (isNumbered ? " by number" : ""));
                Piece piece;
                for (unsigned i = 0; i < 4; ++i) {
                    Beat &beat = piece.add({key}, NoteValue::Quarter);
                    if (isNumbered && (i == 0 || i == 3))
                        beat.setSlurEnds({{1, i == 0, SlurLine::Solid, side}});
                    if (isNumbered)
                        continue;
                    beat.setSlurredToNext(i < 3);
                    beat.setSlurredToPrevious(i > 0);
                    beat.setSlurSide(side);
                }
                const LaidOut laid(*piece.model);
                const auto slurs = laid.of(MarkKind::Slur);
                ASSERT_EQ(slurs.size(), 1U);
                const bool isAbove = side == SlurSide::Auto ? key == 79 : side == SlurSide::Above;
                for (const auto &head : laid.of(MarkKind::NoteHead)) {
                    EXPECT_EQ(slurs[0].bottom < head.y, isAbove);
                    EXPECT_EQ(slurs[0].top > head.y, !isAbove);
                }
            }
}

/// Of two slurs over the same notes one lies where it is given, the other one opposite, though it
/// would have been on the same side alone.
TEST(CurvesTest, slursOverTheSameNotesPart)
{
    for (const auto &[key, side] : {std::pair<int, SlurSide>{79, SlurSide::Above},
                                    std::pair<int, SlurSide>{62, SlurSide::Below}}) {
        SCOPED_TRACE(key);
        Piece piece;
        for (unsigned i = 0; i < 4; ++i) {
            Beat &beat = piece.add({key}, NoteValue::Quarter);
            if (i == 0 || i == 3)
                beat.setSlurEnds({{1, i == 0, SlurLine::Solid, side}});
            beat.setSlurredToNext(i < 3);
            beat.setSlurredToPrevious(i > 0);
        }
        const LaidOut laid(*piece.model);
        const auto slurs = laid.of(MarkKind::Slur);
        ASSERT_EQ(slurs.size(), 2U);
        const double head = laid.of(MarkKind::NoteHead).front().y;
        EXPECT_NE(slurs[0].bottom < head, slurs[1].bottom < head);
        EXPECT_NE(slurs[0].top > head, slurs[1].top > head);
    }
}

/// So do their halves where they leave a system, and those of grace notes, which else keep off the
/// small stems.
TEST(CurvesTest, halvesOfSlursAndSlursOfGraceNotesLieOnTheSideThatTheyAreGiven)
{
    for (const SlurSide side : {SlurSide::Above, SlurSide::Below}) {
        SCOPED_TRACE(markSideToString(side));
        const bool isAbove = side == SlurSide::Above;
        constexpr unsigned bars = 16;
        Piece piece(bars);
        for (unsigned bar = 0; bar < bars; ++bar)
            for (unsigned i = 0; i < 4; ++i) {
                Beat &beat = piece.add({71}, NoteValue::Quarter, 0, 0, bar);
                beat.setSlurredToNext(bar + 1 < bars || i < 3);
                beat.setSlurredToPrevious(bar > 0 || i > 0);
                beat.setSlurSide(side);
            }
        const LaidOut laid(*piece.model);
        ASSERT_GT(laid.systemCount, 1U);
        const auto halves = laid.of(MarkKind::Slur);
        ASSERT_EQ(halves.size(), laid.systemCount);
        for (const auto &head : laid.of(MarkKind::NoteHead)) {
            EXPECT_EQ(halves[head.system].bottom < head.y, isAbove);
            EXPECT_EQ(halves[head.system].top > head.y, !isAbove);
        }

        Piece ornament;
        Beat &grace = ornament.add({67}, NoteValue::Eighth);
        grace.setGraceType(GraceType::BeforeBeat);
        grace.setSlurredToNext(true);
        grace.setSlurSide(side);
        Beat &main = ornament.add({67}, NoteValue::Whole);
        main.setSlurredToPrevious(true);
        main.setSlurSide(side);
        const LaidOut small(*ornament.model);
        const auto slurs = small.of(MarkKind::Slur);
        ASSERT_EQ(slurs.size(), 1U);
        for (const auto &head : small.of(MarkKind::NoteHead)) {
            EXPECT_EQ(slurs[0].bottom < head.y, isAbove);
            EXPECT_EQ(slurs[0].top > head.y, !isAbove);
        }
    }
}

/// A slur does not run through the ties and shorter slurs under it.
TEST(CurvesTest, slursGoAroundTheCurvesUnderThem)
{
    Piece piece;
    const auto add = [&](int key, NoteValue value) -> Beat & { return piece.add({key}, value); };
    add(72, NoteValue::Eighth).setSlurredToNext(true);
    Beat &tied = add(79, NoteValue::Quarter);
    Beat &end = add(79, NoteValue::Eighth);
    Piece::tie(tied, end);
    Beat &last = add(81, NoteValue::Half);
    for (Beat *const beat : {&tied, &end})
        beat->setSlurredToNext(true);
    for (Beat *const beat : {&tied, &end, &last})
        beat->setSlurredToPrevious(true);
    const LaidOut laid(*piece.model);
    const auto ties = laid.of(MarkKind::Tie);
    const auto slurs = laid.of(MarkKind::Slur);
    ASSERT_EQ(ties.size(), 1U);
    ASSERT_EQ(slurs.size(), 1U);
    EXPECT_LT(slurs[0].top, ties[0].top - 0.3);
}

/// A slur to a note that is hidden, since that of another voice stands there, ends at that.
TEST(CurvesTest, slursEndAtWhatIsDrawnInsteadOfHiddenNotes)
{
    Piece piece(3);
    piece.add({81}, NoteValue::Whole);
    piece.add({64}, NoteValue::Half, 0, 1);
    piece.add({62}, NoteValue::Half, 0, 1).setSlurredToNext(true);
    piece.add({64, 81}, NoteValue::Whole, 0, 0, 1);
    Beat &hidden = piece.add({64}, NoteValue::Whole, 0, 1, 1);
    hidden.note(0)->setHidden(true);
    hidden.setSlurredToPrevious(true);
    piece.add({81}, NoteValue::Whole, 0, 0, 2);
    const LaidOut laid(*piece.model);
    const auto slurs = laid.of(MarkKind::Slur);
    ASSERT_EQ(slurs.size(), 1U);
    for (const auto &note : laid.of(MarkKind::NoteHead)) {
        EXPECT_EQ(slurs[0].right < note.left, note.place.bar == 2) << note.place.bar;
    }
}

/// Two quarters on one string in the last bar of a guitar on tablature alone.
struct TwoOnTablature {
    SmallScore small;
    Voice &voice = *small.model.track(0)->bar(5)->ensureVoice(0);

    TwoOnTablature()
    {
        TrackNotations tablature;
        tablature.standard = false;
        tablature.tablature = true;
        small.model.track(0)->setChosenNotations(tablature);
        SmallScore::addBeat(voice, {2});
        SmallScore::addBeat(voice, {2});
    }
};

/// A slide that is not struck again has an arc on tablature, which a slur over the same two notes
/// already is.
TEST(CurvesTest, aSlurredSlideHasOneArc)
{
    for (const bool isSlurred : {false, true}) {
        TwoOnTablature score;
        Voice &voice = score.voice;
        NoteMarks marks = voice.beat(0)->notes()[0]->marks();
        marks.setSlideOut(SlideOut::Legato);
        voice.beat(0)->notes()[0]->setMarks(marks);
        voice.beat(1)->notes()[0]->setFret(5);
        voice.beat(0)->setSlurredToNext(isSlurred);
        voice.beat(1)->setSlurredToPrevious(isSlurred);
        const LaidOut laid(score.small.model);
        EXPECT_EQ(laid.of(MarkKind::Slide).size(), isSlurred ? 1U : 2U);
        EXPECT_EQ(laid.of(MarkKind::Slur).size(), isSlurred ? 1U : 0U);
    }
}

/// The arrows of bends lead up from the numbers of tablature, where slurs are else.
TEST(CurvesTest, slursOverBendsLieBelowTheNumbers)
{
    for (const bool isBent : {false, true}) {
        TwoOnTablature score;
        Voice &voice = score.voice;
        if (isBent) {
            Bend bend;
            bend.type = BendType::Bend;
            bend.curve = PitchCurve{{0, 0}, {60, 4}};
            voice.beat(0)->notes()[0]->setBend(bend);
        }
        voice.beat(0)->setSlurredToNext(true);
        voice.beat(1)->setSlurredToPrevious(true);
        const LaidOut laid(score.small.model);
        const auto slurs = laid.of(MarkKind::Slur);
        ASSERT_EQ(slurs.size(), 1U);
        for (const auto &fret : laid.of(MarkKind::Fret))
            if (fret.place.bar == 5) {
                EXPECT_EQ(slurs[0].top > fret.top, isBent);
            }
    }
}
