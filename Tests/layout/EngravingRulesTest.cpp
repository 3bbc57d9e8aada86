// SPDX-License-Identifier: MIT
#include "support/LaidOut.h"
#include "support/ViolinPiece.h"

#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>

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

std::vector<double> heightsOf(const LaidOut &laid, MarkKind kind)
{
    std::vector<double> heights;
    for (const auto &mark : laid.of(kind))
        heights.push_back(mark.y);
    std::sort(heights.begin(), heights.end());
    return heights;
}

} // namespace

/// F sharp that is tied from G flat is written as what it is, and so is what differs from another
/// voice at once on its line.
TEST(EngravingRulesTest, accidentalsTellWhatNobodyCanGuess)
{
    Piece tied(2);
    Beat &flat = tied.add({66}, NoteValue::Whole);
    Beat &sharp = tied.add({66}, NoteValue::Whole, 0, 0, 1);
    flat.notes()[0]->setSpelling(PitchClass::fromString(QStringLiteral("Gb")));
    sharp.notes()[0]->setSpelling(PitchClass::fromString(QStringLiteral("F#")));
    Piece::tie(flat, sharp);
    const LaidOut laid(*tied.model);
    std::vector<std::string> glyphs;
    for (const auto &mark : laid.of(MarkKind::Accidental))
        glyphs.push_back(mark.glyph);
    EXPECT_EQ(glyphs, (std::vector<std::string>{"accidentalFlat", "accidentalSharp"}));
    EXPECT_EQ(laid.of(MarkKind::Tie).size(), 1U);

    Piece voices;
    voices.add({72}, NoteValue::Whole);
    voices.add({73}, NoteValue::Whole, 0, 1);
    EXPECT_EQ(LaidOut(*voices.model).of(MarkKind::Accidental).size(), 2U);
}

/// A clef has the room between two columns to itself: the note in front of it is no note of it,
/// however low it lies, and beams lead around it.
TEST(EngravingRulesTest, nothingStandsUnderAClefInTheBar)
{
    Piece piece;
    for (const int key : {67, 62, 60, 61, 59, 57})
        piece.add({key}, NoteValue::Sixteenth);
    piece.model->track(0)->bar(0)->setClefChanges({{utils::rational(3, 4), ClefType::F4}});
    const LaidOut laid(*piece.model);
    const auto heads = laid.of(MarkKind::NoteHead);
    ASSERT_EQ(heads.size(), 6U);
    for (const auto &clef : laid.of(MarkKind::Clef))
        if (clef.left > heads[0].left) {
            EXPECT_LT(heads[2].right, clef.left);
            EXPECT_LT(clef.right, heads[3].left);
            for (const auto &beam : laid.of(MarkKind::Beam))
                EXPECT_TRUE(beam.right < clef.left || clef.right < beam.left
                            || clef.bottom < beam.top || beam.bottom < clef.top);
        }
}

/// Of voices that cross, the upper note stands in front: the flag of the other one is behind it.
TEST(EngravingRulesTest, crossedVoicesKeepClose)
{
    Piece piece;
    piece.add({74}, NoteValue::Eighth);
    piece.add({81}, NoteValue::Quarter, 0, 1);
    const LaidOut laid(*piece.model);
    const auto heads = laid.of(MarkKind::NoteHead);
    ASSERT_EQ(heads.size(), 2U);
    const bool isUpperFirst = heads[0].y < heads[1].y;
    const auto &upper = heads[isUpperFirst ? 0 : 1];
    const auto &lower = heads[isUpperFirst ? 1 : 0];
    EXPECT_LE(upper.left, lower.left);
    EXPECT_LT(lower.left - upper.left, upper.right - upper.left + 0.5);
}

/// A dotted note stands behind one without dots that is in its way, next to its dot.
TEST(EngravingRulesTest, dotsStandBesideTheirNotes)
{
    Piece piece;
    piece.add({69}, NoteValue::Half, 1);
    piece.add({69}, NoteValue::Quarter, 0, 1);
    const LaidOut laid(*piece.model);
    const auto heads = laid.of(MarkKind::NoteHead);
    const auto dots = laid.of(MarkKind::AugmentationDot);
    ASSERT_EQ(heads.size(), 2U);
    ASSERT_EQ(dots.size(), 1U);
    for (const auto &head : heads)
        if (head.glyph == "noteheadHalf") {
            EXPECT_GE(head.left, heads[0].left);
            EXPECT_GE(head.left, heads[1].left);
            EXPECT_LT(dots[0].left - head.right, 0.8);
        }
}

TEST(EngravingRulesTest, dotsStandInSpacesOneInEach)
{
    const auto dots = [](const std::vector<int> &upper, const std::vector<int> &lower) {
        Piece piece;
        piece.add(upper, NoteValue::Half, 1);
        if (!lower.empty())
            piece.add(lower, NoteValue::Half, 1, 1);
        return heightsOf(LaidOut(*piece.model), MarkKind::AugmentationDot);
    };
    EXPECT_EQ(dots({72}, {}), (std::vector<double>{1.5})) << "beside a head in a space";
    EXPECT_EQ(dots({71}, {}), (std::vector<double>{1.5})) << "above that of a head on a line";
    EXPECT_EQ(dots({71, 72}, {}), (std::vector<double>{1.5, 2.5})) << "of a second";
    EXPECT_EQ(dots({64, 67, 71}, {}), (std::vector<double>{1.5, 2.5, 3.5}));
    EXPECT_EQ(dots({76}, {64}), (std::vector<double>{0.5, 4.5})) << "of a lower voice below";
    EXPECT_EQ(dots({71}, {71}), (std::vector<double>{1.5})) << "one for a head of two voices";
    EXPECT_EQ(dots({72}, {71}), (std::vector<double>{1.5, 2.5})) << "never two in a space";
}

TEST(EngravingRulesTest, voicesKeepToTheirSides)
{
    Piece piece;
    piece.add({72}, NoteValue::Quarter);
    piece.add({}, NoteValue::Quarter);
    piece.add({72}, NoteValue::Half);
    piece.add({}, NoteValue::Quarter, 0, 1);
    piece.add({69}, NoteValue::Quarter, 0, 1);
    piece.add({69}, NoteValue::Half, 0, 1);
    const LaidOut laid(*piece.model);
    for (const auto &stem : laid.of(MarkKind::Stem))
        EXPECT_EQ(stem.bottom < 2.5, stem.place.voice == 0);
    for (const auto &rest : laid.of(MarkKind::Rest))
        EXPECT_EQ(rest.y < 2, rest.place.voice == 0);
    // A third apart, the heads of both stand in one column.
    const auto heads = laid.of(MarkKind::NoteHead);
    EXPECT_NEAR(heads[1].x, heads.back().x, 0.001);
}

/// Grace notes have beams and stems of their own: the beam of the notes around them leads on.
TEST(EngravingRulesTest, beamsLeadOverGraceNotes)
{
    for (const unsigned graces : {1U, 2U}) {
        Piece piece;
        piece.add({72}, NoteValue::Eighth);
        for (unsigned i = 0; i < graces; ++i)
            piece.add({76}, NoteValue::Sixteenth).setGraceType(GraceType::BeforeBeat);
        piece.add({74}, NoteValue::Eighth);
        const LaidOut laid(*piece.model);
        EXPECT_EQ(laid.of(MarkKind::Flag).size(), graces == 1 ? 1U : 0U);
        EXPECT_EQ(laid.of(MarkKind::Beam).size(), graces == 1 ? 1U : 3U);
        const auto heads = laid.of(MarkKind::NoteHead);
        const auto isOverAll = [&](const LaidOut::Mark &beam) {
            return beam.left < heads.front().right && beam.right > heads.back().left;
        };
        const auto beams = laid.of(MarkKind::Beam);
        EXPECT_EQ(std::count_if(beams.begin(), beams.end(), isOverAll), 1);
        EXPECT_EQ(laid.of(MarkKind::Stem).size(), graces + 2);
    }
}

TEST(EngravingRulesTest, theFlagEndsAboveAHeadOnItsSide)
{
    Piece piece;
    piece.add({65, 67, 69}, NoteValue::Eighth);
    piece.add({}, NoteValue::Eighth);
    const LaidOut laid(*piece.model);
    const auto flag = laid.of(MarkKind::Flag).at(0);
    for (const auto &head : laid.of(MarkKind::NoteHead))
        if (head.x > flag.left - 0.2) {
            EXPECT_LE(flag.bottom, head.top);
        }
}

/// A bracket leads to its number from both sides; where the notes leave it no room, the number
/// stands alone.
TEST(EngravingRulesTest, tupletBracketsLeaveTheirNumbersAlone)
{
    for (const unsigned count : {1U, 2U, 7U}) {
        Piece piece;
        RhythmValue rhythm(NoteValue::Half);
        rhythm.setPrimaryTupletRatio({std::max(count, 2U), count == 7 ? 3U : 5U});
        for (unsigned i = 0; i < count; ++i)
            piece.add({72}, NoteValue::Half).setRhythmValue(rhythm);
        const auto marks = LaidOut(*piece.model).of(MarkKind::Tuplet);
        ASSERT_EQ(marks.size(), count == 1 ? 1U : 3U);
        const auto &number = marks.back();
        for (const auto &mark : marks)
            if (mark.text.empty()) {
                EXPECT_GT(mark.right - mark.left, 0.3);
                EXPECT_TRUE(mark.right < number.left || mark.left > number.right);
            }
    }
}

TEST(EngravingRulesTest, aTremoloBetweenTwoNotesNeedsNoTupletNumber)
{
    Piece piece;
    const auto add = [&](unsigned strokes) {
        RhythmValue rhythm(NoteValue::Quarter);
        rhythm.setPrimaryTupletRatio({4, 2});
        for (const unsigned between : {strokes, 0U}) {
            Beat &beat = piece.add({72}, NoteValue::Quarter);
            beat.setRhythmValue(rhythm);
            BeatMarks marks = beat.marks();
            marks.setTremoloToNext(between);
            beat.setMarks(marks);
        }
    };
    add(3);
    add(3);
    EXPECT_TRUE(LaidOut(*piece.model).of(MarkKind::Tuplet).empty());
}

/// However close together the notes would stand, their strokes are strokes and no dots.
TEST(EngravingRulesTest, tremolosBetweenNotesHaveRoom)
{
    Piece piece;
    for (int i = 0; i < 8; ++i) {
        Beat &beat = piece.add({i % 2 == 0 ? 76 : 66}, NoteValue::Eighth);
        BeatMarks marks = beat.marks();
        marks.setTremoloToNext(i % 2 == 0 ? 3 : 0);
        beat.setMarks(marks);
    }
    const auto strokes = LaidOut(*piece.model).of(MarkKind::Tremolo);
    ASSERT_EQ(strokes.size(), 12U);
    for (const auto &stroke : strokes)
        EXPECT_GT(stroke.right - stroke.left, 1.0);
}

/// They keep off the heads and dots of notes that have no beam.
TEST(EngravingRulesTest, stemsAreLongEnoughForTheStrokesOfTremolos)
{
    for (const unsigned strokes : {3U, 4U}) {
        Piece piece;
        for (const unsigned between : {strokes, 0U}) {
            Beat &beat = piece.add({67}, NoteValue::Half, 1);
            BeatMarks marks = beat.marks();
            marks.setTremoloToNext(between);
            beat.setMarks(marks);
        }
        const LaidOut laid(*piece.model);
        const auto drawn = laid.of(MarkKind::Tremolo);
        ASSERT_EQ(drawn.size(), strokes);
        for (const auto &dot : laid.of(MarkKind::AugmentationDot))
            for (const auto &stroke : drawn)
                EXPECT_LT(stroke.bottom, dot.top - 0.1);
    }
}

/// Strokes lead from stem to stem, over the head that is between them.
TEST(EngravingRulesTest, tremolosBetweenNotesStandInTheMiddleOfTheStems)
{
    Piece piece;
    for (int i = 0; i < 8; ++i) {
        Beat &beat = piece.add({i % 2 == 0 ? 67 : 69}, NoteValue::Eighth);
        BeatMarks marks = beat.marks();
        marks.setTremoloToNext(i % 4 == 0 ? 2 : 0);
        beat.setMarks(marks);
    }
    const LaidOut laid(*piece.model);
    const auto stems = laid.of(MarkKind::Stem);
    const auto strokes = laid.of(MarkKind::Tremolo);
    ASSERT_EQ(stems.size(), 8U);
    ASSERT_EQ(strokes.size(), 4U);
    for (const auto &stroke : strokes) {
        const auto first = static_cast<std::size_t>(stroke.place.beat);
        EXPECT_NEAR((stroke.left + stroke.right) / 2, (stems[first].x + stems[first + 1].x) / 2,
                    0.05);
    }
}

/// A last line that stays short is not as dense as a line that stands alone: those before it are
/// drawn out.
TEST(EngravingRulesTest, lastLinesAreLooserThanSingleOnes)
{
    const auto gapOfLast = [](unsigned linesBefore) {
        Piece piece(3 * linesBefore + 1);
        for (unsigned bar = 0; bar < 3 * linesBefore + 1; ++bar)
            for (int i = 0; i < 4; ++i)
                piece.add({67}, NoteValue::Quarter, 0, 0, bar);
        if (linesBefore > 0)
            piece.model->setFullScoreSystemsLayout({3, 1});
        const LaidOut laid(*piece.model);
        const auto notes = laid.of(MarkKind::NoteHead);
        EXPECT_EQ(notes.back().system, linesBefore);
        return notes.back().left - notes[notes.size() - 2].left;
    };
    EXPECT_GT(gapOfLast(1), 1.3 * gapOfLast(0));
}

TEST(EngravingRulesTest, noBarIsLeftAloneOnTheLastLine)
{
    for (unsigned bars = 8; bars <= 40; bars += 3) {
        SCOPED_TRACE(bars);
        Piece piece(bars);
        for (unsigned bar = 0; bar < bars; ++bar)
            for (int i = 0; i < 4; ++i)
                piece.add({67 + i}, NoteValue::Quarter, 0, 0, bar);
        layout::LayoutOptions options;
        options.breaks = layout::SystemBreaks::ByThemselves;
        const LaidOut laid(*piece.model, options);
        const auto &systems = laid.layout->pages().back().systems;
        if (laid.systemCount > 1) {
            EXPECT_GE(systems.back().drawing->bars.size(), 2U);
        }
    }
}

/// A rest that fills its bar stands in the middle, whether it was written so or meant so.
TEST(EngravingRulesTest, restsThatFillTheirBarStandInItsMiddle)
{
    Piece piece(3);
    piece.add({}, NoteValue::Whole);
    piece.add({}, NoteValue::Whole, 0, 0, 1).setWholeBarRest(true);
    piece.add({}, NoteValue::Half, 0, 0, 2);
    piece.add({}, NoteValue::Half, 0, 0, 2);
    const LaidOut laid(*piece.model);
    const auto rests = laid.of(MarkKind::Rest);
    const auto &bars = laid.layout->pages()[0].systems[0].drawing->bars;
    ASSERT_EQ(rests.size(), 4U);
    for (const auto &rest : rests) {
        const auto &bar = bars[static_cast<std::size_t>(rest.place.bar)];
        const double middle = layout::toSpaces(bar.left + bar.right) / 2;
        const double offset = std::abs((rest.left + rest.right) / 2 - middle);
        EXPECT_EQ(offset < 0.01, rest.place.bar < 2) << rest.place.bar << ' ' << offset;
    }
}

/// Halves and wholes hang on a line: outside the staff on one of their own.
TEST(EngravingRulesTest, restsOutsideTheStaffBringTheirLine)
{
    Piece piece;
    piece.add({60}, NoteValue::Half);
    piece.add({72}, NoteValue::Half);
    piece.add({}, NoteValue::Half, 0, 1);
    piece.add({65}, NoteValue::Half, 0, 1);
    const auto rests = LaidOut(*piece.model).of(MarkKind::Rest);
    ASSERT_EQ(rests.size(), 1U);
    EXPECT_EQ(rests[0].glyph, "restHalfLegerLine");
    EXPECT_GT(rests[0].y, 4.1);
}

TEST(EngravingRulesTest, emptyBarsHaveARestWhereRestsAreDrawn)
{
    Piece piece(2);
    piece.add({64}, NoteValue::Whole);
    const LaidOut laid(*piece.model);
    const auto rests = laid.of(MarkKind::Rest);
    ASSERT_EQ(rests.size(), 1U);
    EXPECT_EQ(rests[0].glyph, "restWhole");
    EXPECT_EQ(rests[0].place.bar, 1);
    EXPECT_EQ(rests[0].place.voice, -1) << "it stands for no beat";
}

/// Voices that rest for as long at once share one sign, but not beside a third that sounds.
TEST(EngravingRulesTest, voicesShareEqualRests)
{
    const auto rests = [](bool withThird, NoteValue lower) {
        Piece piece;
        for (unsigned voice = 0; voice < 2; ++voice) {
            piece.add({voice == 0 ? 76 : 65}, NoteValue::Half, 0, voice);
            piece.add({}, voice == 0 ? NoteValue::Half : lower, 0, voice);
        }
        if (lower == NoteValue::Quarter)
            piece.add({65}, NoteValue::Quarter, 0, 1);
        if (withThird)
            piece.add({71}, NoteValue::Whole, 0, 2);
        return LaidOut(*piece.model).of(MarkKind::Rest);
    };
    const auto shared = rests(false, NoteValue::Half);
    ASSERT_EQ(shared.size(), 1U);
    EXPECT_NEAR(shared[0].y, 2, 0.01) << "on the middle line";
    EXPECT_EQ(rests(false, NoteValue::Quarter).size(), 2U);
    EXPECT_EQ(rests(true, NoteValue::Half).size(), 2U);
}

/// So do rests of a voice that is alone for a while.
TEST(EngravingRulesTest, restsBesideNothingStandInTheUsualPlace)
{
    Piece piece;
    piece.add({76}, NoteValue::Quarter);
    for (int i = 0; i < 3; ++i)
        piece.add({}, NoteValue::Quarter);
    piece.add({65}, NoteValue::Half, 0, 1);
    piece.add({}, NoteValue::Half, 0, 1).setPlaceHolder(true);
    const auto rests = LaidOut(*piece.model).of(MarkKind::Rest);
    ASSERT_EQ(rests.size(), 3U);
    EXPECT_LT(rests[0].y, 1) << "beside the note of the other voice";
    EXPECT_NEAR(rests[1].y, 2, 0.01);
    EXPECT_NEAR(rests[2].y, 2, 0.01);
}

/// A movement ends with the bar line of an end, and says itself how the next one begins.
TEST(EngravingRulesTest, movementsEndWithAFinalBarLine)
{
    for (const bool isMovement : {false, true}) {
        Piece piece(2);
        for (unsigned bar = 0; bar < 2; ++bar)
            piece.add({72}, NoteValue::Whole, 0, 0, bar);
        MasterBar &second = *piece.model->masterTrack()->masterBars()[1];
        second.setConcertKeySignature(KeySignature(2));
        second.setMovementStart(isMovement);
        if (!isMovement)
            piece.model->setFullScoreSystemsLayout({1, 1});
        const LaidOut laid(*piece.model);
        ASSERT_EQ(laid.systemCount, 2U);
        const auto inFirst = [&](MarkKind kind) {
            const auto marks = laid.of(kind);
            return std::count_if(marks.begin(), marks.end(),
                                 [](const auto &mark) { return mark.system == 0; });
        };
        EXPECT_EQ(inFirst(MarkKind::BarLine), isMovement ? 2 : 1);
        EXPECT_EQ(inFirst(MarkKind::KeySignature), isMovement ? 0 : 2);
    }
}

/// Drums that are typed or played have a key and no place: the instrument set knows it.
TEST(EngravingRulesTest, drumsThatOnlyHaveAKeyStandWhereItEntersThem)
{
    InstrumentSet kit(InstrumentSet::drumKit);
    InstrumentArticulation hiHat;
    hiHat.setStaffLine(9);
    hiHat.setInputMidiNumbers({42});
    kit.setArticulations({hiHat});
    InstrumentSetLibrary library;
    library.setInstrumentSets({std::make_shared<const InstrumentSet>(kit)});
    ScoreModel model;
    model.createAndInsertTrack(0, InstrumentSet::drumKit);
    model.insertEmptyBarColumns(0, 1);
    auto beat = std::make_shared<Beat>(RhythmValue(NoteValue::Whole));
    beat->addNote(std::make_shared<Note>(42));
    model.track(0)->bar(0)->ensureVoice(0)->addBeat(beat);
    InstrumentSetLibrary::install(&library);
    const LaidOut laid(model);
    InstrumentSetLibrary::install(nullptr);
    ASSERT_EQ(laid.of(MarkKind::NoteHead).size(), 1U);
    EXPECT_EQ(laid.of(MarkKind::NoteHead)[0].y, -0.5) << "above the top line";
    EXPECT_TRUE(laid.layout->problems().empty());
}
