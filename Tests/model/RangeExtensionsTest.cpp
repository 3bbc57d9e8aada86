// SPDX-License-Identifier: MIT
#include "ModelSamples.h"

#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <functional>
#include <limits>
#include <string>

using namespace zarn;
using utils::rational;
using NoteValue = RhythmValue::NoteValue;
using Range = ScoreModelRange;

namespace {

/// Nine bars of a half and two quarters; players' numbers, from 1, in all of these tests.
struct NineBars : testing::Test {
    std::shared_ptr<ScoreModel> model = makeBand(9);

    Voice &voice(int bar) const
    {
        return *model->track(0)->bar(static_cast<unsigned>(bar - 1))->voice(0);
    }
    ScoreModelIndex at(int bar, int beat) const
    {
        return ScoreModelIndex(model.get(), 0, bar - 1, beat - 1, 0, 0);
    }
    Range bars(int first, int last) const { return Range(at(first, 1), at(last, 1)); }
    Range from(int bar, int beat, int lastBar, int lastBeat) const
    {
        return Range(at(bar, beat), at(lastBar, lastBeat));
    }
    void mark(std::initializer_list<std::pair<int, SimileMark>> marks) const
    {
        for (const auto &[bar, kind] : marks) {
            model->track(0)->bar(static_cast<unsigned>(bar - 1))->setSimileMark(kind);
            voice(bar).clear();
        }
    }
};

/// "3:1 - 4:3", beat 0 for none.
std::string ends(const Range &range)
{
    const auto end = [](const ScoreModelIndex &index) {
        return std::to_string(index.barIndex() + 1) + ":" + std::to_string(index.beatIndex() + 1);
    };
    return end(range.first()) + " - " + end(range.second());
}

void tie(Voice &from, Voice &to)
{
    from.addBeat(makeBeat(NoteValue::Quarter, {60}));
    from.beats().back()->note(0)->setTieOrigin(true);
    to.insertBeat(0, makeBeat(NoteValue::Quarter, {60}));
    to.beats().front()->note(0)->setTied(true);
}

} // namespace

using RangeExtensions = NineBars;

TEST_F(RangeExtensions, wholeBarsAndTheirBorders)
{
    Range range = from(3, 2, 4, 1);
    range.mutableFirst().setNoteMidi(60);
    EXPECT_EQ(ends(range.extendedBarRange()), "3:1 - 4:3");
    EXPECT_EQ(range.extendedBarRange().first().noteMidi(), ScoreModelIndex::Unset);
    EXPECT_TRUE(bars(3, 3).extendedBarRange().isMultiSelection());
    EXPECT_EQ(ends(range.extendedBorderBarRange(1)), "2:1 - 5:3");
    EXPECT_EQ(ends(range.extendedBorderBarRange(-5)), "3:1 - 4:3");
    EXPECT_EQ(ends(range.extendedBorderBarRange(std::numeric_limits<int>::max())), "1:1 - 9:3");
    voice(4).clear();
    EXPECT_EQ(ends(Range::extendedBarRange(range)), "3:1 - 4:0") << "a bar without beats";
    range.setFirst(at(4, 1));
    range.setSecond(at(3, 2));
    EXPECT_EQ(ends(range.extendedBarRange()), "3:1 - 4:0") << "ends that are swapped";
    range.setSecond(at(12, 1));
    EXPECT_EQ(range.extendedBorderBarRange(1), range) << "an end that does not exist";
}

TEST_F(RangeExtensions, tiesLeadToOtherBars)
{
    tie(voice(2), voice(3));
    voice(5).clear();
    voice(5).addBeat(makeBeat(NoteValue::Whole, {60}));
    tie(voice(4), voice(5));
    voice(5).takeBeats(0, 0);
    voice(5).beat(0)->note(0)->setTied(true);
    voice(5).beat(0)->note(0)->setTieOrigin(true);
    voice(6).insertBeat(0, makeBeat(NoteValue::Quarter, {60}));
    voice(6).beat(0)->note(0)->setTied(true);
    for (const int noLimit : {-1, std::numeric_limits<int>::min()})
        EXPECT_EQ(ends(bars(3, 4).extendedTiedBarRange(noLimit)), "2:1 - 6:4");
    EXPECT_EQ(ends(bars(3, 4).extendedTiedBarRange(1)), "2:1 - 5:1");
    EXPECT_EQ(ends(bars(3, 4).extendedTiedBarRange(0)), "3:1 - 4:4");
    EXPECT_EQ(ends(Range::extendedTiedBarRange(bars(7, 8), -1)), "7:1 - 8:3");

    // A tie of another voice counts when the range has all voices.
    const auto other = [&](unsigned bar) { return model->track(0)->bar(bar)->ensureVoice(3); };
    tie(*other(7), *other(8));
    EXPECT_EQ(ends(bars(8, 8).extendedTiedBarRange(-1)), "8:1 - 8:3");
    Range all = bars(8, 8);
    all.setMultiVoice(true);
    EXPECT_EQ(ends(all.extendedTiedBarRange(-1)), "8:1 - 9:3");
}

TEST_F(RangeExtensions, simileBarsSoundOthers)
{
    mark({{5, SimileMark::Simple}, {6, SimileMark::Simple}});
    EXPECT_EQ(ends(bars(5, 5).extendedSoundingSimileRange()), "4:1 - 6:0");
    EXPECT_EQ(ends(bars(4, 4).extendedSoundingSimileRange()), "4:1 - 6:0");
    EXPECT_EQ(ends(bars(1, 3).extendedSoundingSimileRange()), "1:1 - 3:3");
    EXPECT_EQ(ends(bars(5, 6).soundingBarRange()), "4:1 - 4:3");
    EXPECT_EQ(ends(bars(6, 7).soundingBarRange()), "4:1 - 7:3");
    EXPECT_EQ(ends(bars(2, 5).soundingBarRange()), "2:1 - 4:3");
    EXPECT_TRUE(bars(1, 5).hasAnySimile());
    EXPECT_FALSE(bars(7, 9).hasAnySimile());

    mark({{5, SimileMark::FirstOfDouble}, {6, SimileMark::SecondOfDouble}});
    for (const int bar : {3, 4, 5, 6})
        EXPECT_EQ(ends(bars(bar, bar).extendedSoundingSimileRange()), "3:1 - 6:0");
    EXPECT_EQ(ends(bars(5, 6).soundingBarRange()), "3:1 - 4:3");
    EXPECT_EQ(ends(bars(5, 5).soundingBarRange()), "3:1 - 3:3");

    // Marks of other staves count where the range takes them in.
    const auto piano = model->track(1);
    piano->bar(7, 1)->setSimileMark(SimileMark::Simple);
    Range upper(ScoreModelIndex(model.get(), 1, 7, -1, 0, 0));
    EXPECT_FALSE(upper.hasAnySimile());
    upper.setMultiVoice(true);
    upper.mutableSecond().setStaffIndex(1);
    EXPECT_TRUE(upper.hasAnySimile());
    EXPECT_EQ(ends(Range::soundingBarRange(upper)), "7:0 - 8:0");

    // Marks with nothing in front of them sound nothing else.
    mark({{1, SimileMark::SecondOfDouble}, {2, SimileMark::Simple}});
    EXPECT_EQ(ends(bars(2, 2).soundingBarRange()), "1:0 - 1:0");
    EXPECT_EQ(ends(bars(1, 1).extendedSoundingSimileRange()), "1:0 - 2:0");
}

TEST_F(RangeExtensions, countsAndOffsets)
{
    Range range = from(3, 2, 4, 1);
    EXPECT_EQ(range.beatCount(), 3u);
    EXPECT_EQ(range.beginSelectionOffset(), rational(2));
    EXPECT_EQ(range.endSelectionOffset(), rational(2));
    voice(3).beat(0)->setGraceType(GraceType::BeforeBeat);
    EXPECT_EQ(range.beginSelectionOffsetIgnoringGraceBeats(), rational(0));
    range.mutableSecond().setBeatIndex(2);
    EXPECT_EQ(range.endSelectionOffsetIgnoringGraceBeats(), rational(4));
    range.setMultiVoice(true);
    EXPECT_EQ(range.beatCount(), 6u);
    EXPECT_EQ(range.beginSelectionOffset(), rational(0));
    EXPECT_EQ(range.endSelectionOffset(), rational(4));

    const Range empty(ScoreModelIndex(model.get(), 1, 2, -1, 0, 0));
    EXPECT_FALSE(empty.hasAnyBeat());
    EXPECT_EQ(empty.beginSelectionOffset(), rational(0));
    EXPECT_EQ(empty.endSelectionOffset(), rational(4)) << "the bar is empty but not short";
    EXPECT_TRUE(Range(at(3, 0)).hasAnyBeat()) << "no beat is the whole bar";
    EXPECT_EQ(Range().beatCount(), 0u);
    EXPECT_EQ(Range().endSelectionOffset(), rational(0));
    EXPECT_EQ(bars(30, 40).beatCount(), 0u);
}

TEST_F(RangeExtensions, theLastBeatIsTrimmed)
{
    Range range = from(3, 2, 5, 2);
    voice(4).clear();
    std::string text;
    while (range.trimLastBeat())
        text += ends(range) + ", ";
    EXPECT_EQ(text, "3:2 - 5:1, 3:2 - 3:3, 3:2 - 3:2, ");
    range.setMultiSelection(true);
    EXPECT_FALSE(range.trimLastBeat()) << "nothing is left in front";

    Range whole(at(3, 0), at(5, 0));
    ASSERT_TRUE(whole.trimLastBeat());
    EXPECT_EQ(ends(whole), "3:0 - 5:2") << "a whole bar without its last beat";
    Range otherTrack(at(3, 1));
    otherTrack.mutableSecond().setTrackIndex(1);
    EXPECT_FALSE(otherTrack.trimLastBeat());
    Range nowhere = bars(1, 2);
    nowhere.mutableSecond().setBarIndex(70000);
    EXPECT_FALSE(nowhere.trimLastBeat());
}

TEST_F(RangeExtensions, endsInAnotherVoice)
{
    const auto upper = model->track(0)->bar(3)->ensureVoice(1);
    for (int i = 0; i < 3; ++i)
        upper->addBeat(makeBeat(NoteValue::Quarter, {60}));
    const Range range = from(4, 2, 4, 3);
    EXPECT_EQ(ends(range.mapRange(1)), "4:3 - 4:3");
    EXPECT_EQ(range.mapFirst(1).voiceIndex(), 1u);
    EXPECT_EQ(range.mapSecond(1).beat(), upper->beat(2)) << "the nearest beat";
    EXPECT_EQ(ends(range.mapRange(2)), "4:0 - 4:0");
}
