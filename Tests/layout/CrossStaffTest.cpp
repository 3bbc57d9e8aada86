// SPDX-License-Identifier: MIT
#include "support/LaidOut.h"
#include "support/MeetingInk.h"

#include <ZarnLayout/draw/ZarnPolygons.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using namespace zarn;
using layout::MarkKind;
using ::test::LaidOut;
using NoteValue = RhythmValue::NoteValue;

/// A bar for two staves, of one voice that goes to and fro: each staff keeps the time of the other
/// one free.
class Hands {
public:
    Hands()
    {
        model->createAndInsertTrack(0, InstrumentSet::acousticPiano);
        model->track(0)->setStaffCount(2);
        model->track(0)->setChosenNotations(TrackNotations());
        model->insertEmptyBarColumns(0, 1);
        model->track(0)->staff(1)->bars()[0]->setClef(ClefType::F4);
    }

    Beat &add(unsigned staff, int key, NoteValue value, BeamMode mode = BeamMode::Auto)
    {
        const auto beat = addTo(staff, value);
        beat->addNote(std::make_shared<Note>(key));
        beat->setBeamMode(mode);
        addTo(1 - staff, value)->setPlaceHolder(true);
        return *beat;
    }

    std::shared_ptr<ScoreModel> model = std::make_shared<ScoreModel>();

private:
    std::shared_ptr<Beat> addTo(unsigned staff, NoteValue value)
    {
        const auto beat = std::make_shared<Beat>(RhythmValue(value));
        model->track(0)->staff(staff)->bars()[0]->ensureVoice(0)->addBeat(beat);
        return beat;
    }
};

/// A broken chord from the lower staff to the upper one, on one beam if that is said.
Hands brokenChord(NoteValue value, BeamMode across)
{
    Hands hands;
    hands.add(1, 48, value);
    hands.add(1, 55, value, across);
    hands.add(0, 64, value);
    hands.add(0, 72, value);
    return hands;
}

std::vector<LaidOut::Mark> ofStaff(const LaidOut &laid, MarkKind kind, int staff)
{
    std::vector<LaidOut::Mark> found;
    for (const auto &mark : laid.of(kind))
        if (mark.place.staff == staff)
            found.push_back(mark);
    return found;
}

} // namespace

TEST(CrossStaffTest, aBeamBetweenTheStavesHasStemsFromBothSides)
{
    for (const NoteValue value : {NoteValue::Eighth, NoteValue::Sixteenth}) {
        const LaidOut laid(*brokenChord(value, BeamMode::Join).model);
        const auto beams = laid.of(MarkKind::Beam);
        ASSERT_EQ(beams.size(), value == NoteValue::Eighth ? 1U : 2U);
        EXPECT_TRUE(laid.of(MarkKind::Flag).empty());
        const auto stems = laid.of(MarkKind::Stem);
        ASSERT_EQ(stems.size(), 4U);
        for (const auto &beam : beams) {
            EXPECT_LT(beam.left, ofStaff(laid, MarkKind::Stem, 1).front().left + 0.01);
            EXPECT_GT(beam.right, ofStaff(laid, MarkKind::Stem, 0).back().right - 0.01);
            for (const auto &head : ofStaff(laid, MarkKind::NoteHead, 0))
                EXPECT_GT(beam.top, head.bottom + 1);
            for (const auto &head : ofStaff(laid, MarkKind::NoteHead, 1))
                EXPECT_LT(beam.bottom, head.top - 1);
            // The notes rise, and so does the beam; every stem is on it.
            for (const auto &stem : stems) {
                EXPECT_LT(stem.top, beam.bottom);
                EXPECT_GT(stem.bottom, beam.top);
            }
        }
    }
}

/// A tie under the notes of the upper staff gives way to a beam that leads to it from the lower
/// one.
TEST(CrossStaffTest, tiesKeepOffBeamsBetweenTheStaves)
{
    Hands hands = brokenChord(NoteValue::Sixteenth, BeamMode::Join);
    Voice &held = *hands.model->track(0)->staff(0)->bars()[0]->ensureVoice(1);
    for (const bool isEnd : {false, true}) {
        const auto beat = std::make_shared<Beat>(RhythmValue(NoteValue::Quarter));
        beat->addNote(std::make_shared<Note>(59));
        beat->notes()[0]->setTied(isEnd);
        beat->notes()[0]->setTieOrigin(!isEnd);
        held.addBeat(beat);
    }
    const LaidOut laid(*hands.model);
    const auto ties = laid.of(MarkKind::Tie);
    ASSERT_EQ(ties.size(), 1U);
    for (const auto &beam : laid.of(MarkKind::Beam))
        EXPECT_TRUE(ties[0].bottom < beam.top || ties[0].right < beam.left);
}

/// Articulations of notes on a beam between the staves stand at the heads, below the other voice of
/// their staff.
TEST(CrossStaffTest, articulationsStandAtTheHeadsOfABeamBetweenTheStaves)
{
    Hands hands = brokenChord(NoteValue::Eighth, BeamMode::Join);
    const auto &upper = *hands.model->track(0)->staff(0)->bars()[0];
    upper.voice(0)->beats()[2]->notes()[0]->setAccents(AccentFlag::Staccato);
    const auto held = std::make_shared<Beat>(RhythmValue(NoteValue::Whole));
    held->addNote(std::make_shared<Note>(84));
    hands.model->track(0)->staff(0)->bars()[0]->ensureVoice(1)->addBeat(held);
    const LaidOut laid(*hands.model);
    const auto dots = laid.of(MarkKind::Articulation);
    ASSERT_EQ(dots.size(), 1U);
    for (const auto &head : ofStaff(laid, MarkKind::NoteHead, 0))
        if (head.place.beat == 2) {
            EXPECT_LT(dots[0].bottom, head.top);
            EXPECT_GT(dots[0].bottom, head.top - 1.5);
            EXPECT_NEAR(dots[0].left + dots[0].right, head.left + head.right, 0.05);
        }
}

/// Free time between notes of two staves alone joins nothing: hands may take turns.
TEST(CrossStaffTest, onlyWhatSaysSoIsJoined)
{
    const LaidOut laid(*brokenChord(NoteValue::Eighth, BeamMode::Auto).model);
    EXPECT_EQ(laid.of(MarkKind::Beam).size(), 2U);

    // Nor is anything where other rows stand between the notes.
    Hands hands = brokenChord(NoteValue::Eighth, BeamMode::Join);
    layout::LayoutOptions options;
    options.notations = TrackNotations();
    options.notations->slash = true;
    const LaidOut parted(*hands.model, options);
    EXPECT_EQ(ofStaff(parted, MarkKind::Beam, 0).size(), 2U);
    EXPECT_EQ(ofStaff(parted, MarkKind::Beam, 1).size(), 2U);
}

TEST(CrossStaffTest, stemsThatAgreePutTheBeamOutsideOfBothStaves)
{
    for (const auto said : {ZarnStemOrientation::Upward, ZarnStemOrientation::Downward}) {
        Hands hands = brokenChord(NoteValue::Eighth, BeamMode::Join);
        for (const auto &staff : hands.model->track(0)->staves())
            for (const auto &beat : staff->bars()[0]->voice(0)->beats())
                beat->setStemOrientation(said);
        const LaidOut laid(*hands.model);
        const auto beams = laid.of(MarkKind::Beam);
        ASSERT_EQ(beams.size(), 1U);
        for (const auto &stem : laid.of(MarkKind::Stem)) {
            EXPECT_LT(stem.top, beams[0].bottom);
            EXPECT_GT(stem.bottom, beams[0].top);
        }
        for (const auto &head : laid.of(MarkKind::NoteHead)) {
            if (said == ZarnStemOrientation::Upward)
                EXPECT_LT(beams[0].bottom, head.top);
            else
                EXPECT_GT(beams[0].top, head.bottom);
        }
    }
}

/// What usually stands between the staves makes way for the beam there.
TEST(CrossStaffTest, dynamicsLeaveTheRoomToTheBeam)
{
    Hands hands = brokenChord(NoteValue::Eighth, BeamMode::Join);
    hands.model->track(0)->staff(0)->bars()[0]->voice(0)->beats()[2]->setDynamic(
        NoteDynamic(NoteDynamic::Value::F));
    const LaidOut laid(*hands.model);
    const auto dynamics = laid.of(MarkKind::Dynamic);
    ASSERT_EQ(dynamics.size(), 1U);
    EXPECT_LT(dynamics[0].bottom, 0);
}

/// One number stands for a tuplet of both staves.
TEST(CrossStaffTest, tupletsOfBothStavesAreNamedOnce)
{
    for (const auto said : {ZarnStemOrientation::Undefined, ZarnStemOrientation::Upward}) {
        Hands hands;
        hands.add(1, 55, NoteValue::Eighth, BeamMode::Join);
        hands.add(0, 64, NoteValue::Eighth);
        hands.add(0, 72, NoteValue::Eighth);
        for (const auto &staff : hands.model->track(0)->staves())
            for (const auto &beat : staff->bars()[0]->voice(0)->beats()) {
                RhythmValue rhythm(NoteValue::Eighth);
                rhythm.setPrimaryTupletRatio({3, 2});
                beat->setRhythmValue(rhythm);
                beat->setStemOrientation(said);
            }
        const LaidOut laid(*hands.model);
        ASSERT_EQ(laid.of(MarkKind::Beam).size(), 1U);
        const auto numbers = laid.of(MarkKind::Tuplet);
        ASSERT_EQ(numbers.size(), 1U);
        EXPECT_EQ(numbers[0].text, "3");
        const auto beam = laid.of(MarkKind::Beam)[0];
        EXPECT_GT(numbers[0].left, beam.left);
        EXPECT_LT(numbers[0].right, beam.right);
    }
}

/// Slurs from one staff to the other bend to one side.
TEST(CrossStaffTest, slursBetweenStavesAreNoSerpents)
{
    for (const bool rises : {true, false}) {
        Hands hands;
        Beat &first = hands.add(rises ? 1 : 0, rises ? 48 : 72, NoteValue::Half);
        Beat &last = hands.add(rises ? 0 : 1, rises ? 72 : 48, NoteValue::Half);
        first.setSlurEnds({{1, true}});
        last.setSlurEnds({{1, false}});
        const auto sheets = layout::layOut(*hands.model, {});
        const auto &list = sheets->pages()[0].systems[0].drawing->marks;
        unsigned slurs = 0;
        for (const auto &mark : list.marks()) {
            if (mark.kind != MarkKind::Slur)
                continue;
            ++slurs;
            const auto outline = polygonsOf(list, mark, 24).at(0);
            const auto isLeft = [](const layout::Point &a, const layout::Point &b) {
                return a.x < b.x;
            };
            const auto ends = std::minmax_element(outline.begin(), outline.end(), isLeft);
            const layout::Point from = *ends.first;
            const layout::Point to = *ends.second;
            const double length = std::hypot(to.x - from.x, to.y - from.y);
            double above = 0;
            double below = 0;
            for (const layout::Point &point : outline) {
                const double off = ((to.x - from.x) * double(point.y - from.y)
                                    - (to.y - from.y) * double(point.x - from.x))
                    / length / layout::staffSpace;
                below = std::max(below, off);
                above = std::max(above, -off);
            }
            EXPECT_GT(std::max(above, below), 0.5);
            EXPECT_LT(std::min(above, below), 0.3);
        }
        EXPECT_EQ(slurs, 1U);
    }
}

/// What is said to the lower hand alone stands between the hands, and below it where the upper hand
/// is told something else in the same bar.
TEST(CrossStaffTest, dynamicsStandBetweenTheHandsOrBelowTheOneThatTheyAreFor)
{
    for (const bool hasBoth : {false, true}) {
        Hands hands;
        Beat &low = hands.add(1, 48, NoteValue::Half);
        Beat &high = hands.add(0, 72, NoteValue::Half);
        const auto say = [](Beat &beat) {
            BeatMarks marks = beat.marks();
            marks.setDynamic(NoteDynamic(NoteDynamic::Value::F));
            beat.setMarks(marks);
        };
        say(low);
        if (hasBoth)
            say(high);
        const LaidOut laid(*hands.model);
        const auto dynamics = ofStaff(laid, MarkKind::Dynamic, 1);
        ASSERT_EQ(dynamics.size(), 1U);
        const auto &staves = laid.layout->pages()[0].systems[0].drawing->staves;
        EXPECT_EQ(dynamics[0].bottom < layout::toSpaces(staves[1].top), !hasBoth);
        EXPECT_EQ(dynamics[0].top > layout::toSpaces(staves[1].bottom), hasBoth);
        EXPECT_GT(dynamics[0].top, layout::toSpaces(staves[0].bottom));
    }
}

/// Between the hands, too, dynamics that are wider than their notes keep off each other.
TEST(CrossStaffTest, wideDynamicsBetweenTheHandsKeepOffEachOther)
{
    Hands hands;
    ScoreModel &model = *hands.model;
    model.insertEmptyBarColumns(1, 1);
    for (const auto loud : {NoteDynamic::Value::PPPPPP, NoteDynamic::Value::PPP}) {
        for (unsigned staff = 0; staff < 2; ++staff) {
            const auto beat = std::make_shared<Beat>(RhythmValue(NoteValue::Quarter));
            beat->addNote(std::make_shared<Note>(staff == 0 ? 72 : 48));
            if (staff == 1)
                beat->setDynamic(NoteDynamic(loud));
            model.track(0)->staff(staff)->bars()[1]->ensureVoice(0)->addBeat(beat);
        }
    }
    const LaidOut laid(*hands.model);
    const auto dynamics = laid.of(MarkKind::Dynamic);
    ASSERT_EQ(dynamics.size(), 2U);
    EXPECT_FALSE(::test::meet(dynamics[0], dynamics[1]));
}
