// SPDX-License-Identifier: MIT
#include "RichScore.h"
#include "support/CommandLaw.h"

#include <ZarnCore/model/ZarnModelCheck.h>

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace {

using namespace rich;
using utils::rational;

std::shared_ptr<Beat> beatOf(RhythmValue::NoteValue value, std::initializer_list<int> keys,
                             unsigned dots = 0)
{
    auto beat = std::make_shared<Beat>(RhythmValue(value, dots));
    for (const int key : keys)
        beat->addNote(std::make_shared<Note>(key));
    return beat;
}

/// A note as it is heard, tied ones as one: track, staff, voice, onset, length, key.
using Heard = std::tuple<unsigned, unsigned, unsigned, rational, rational, int>;

/// All notes of a score that is played once through, each voice in its order.
std::vector<Heard> heardNotes(const ScoreModel &model)
{
    std::vector<Heard> heard;
    for (const auto &track : model.tracks())
        for (const auto &staff : track->staves())
            for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
                const std::size_t start = heard.size();
                rational barStart;
                for (const auto &bar : staff->bars()) {
                    rational at = barStart;
                    const auto voice = bar->voice(slot);
                    for (unsigned i = 0; voice && i < voice->beatCount(); ++i) {
                        const Beat &beat = *voice->beats()[i];
                        for (const auto &note : beat.notes()) {
                            bool isHeld = false;
                            for (std::size_t k = start; k < heard.size() && note->isTied(); ++k) {
                                auto &[t, s, v, onset, length, key] = heard[k];
                                if (key == note->midi() && onset + length == at) {
                                    length += beat.length();
                                    isHeld = true;
                                }
                            }
                            if (!isHeld)
                                heard.emplace_back(track->index(), staff->index(), slot, at,
                                                   beat.length(), note->midi());
                        }
                        at += beat.length();
                    }
                    barStart += bar->length();
                }
            }
    return heard;
}

struct WaltzTest : testing::Test {
    Score score;
    ScoreModel &model = *score.scoreModel();

    /// Seven bars of 3/4: notes over the bar line once the meter is 4/4, triplets, a silent bar, a
    /// second voice that pauses, grace notes, a second track.
    WaltzTest()
    {
        using NoteValue = RhythmValue::NoteValue;
        model.createAndInsertTrack(0, InstrumentSet::flute);
        model.createAndInsertTrack(1, InstrumentSet::violin);
        model.insertEmptyBarColumns(0, 7);
        for (const auto &bar : model.masterTrack()->masterBars())
            bar->setTimeSignature({3, 4});
        for (unsigned i = 0; i < 7; ++i) {
            Voice &voice = *model.track(0)->bar(i)->ensureVoice(0);
            if (i == 3) {
                auto rest = beatOf(NoteValue::Whole, {});
                rest->setWholeBarRest(true);
                voice.addBeat(rest);
            } else if (i % 2 == 0) {
                voice.addBeat(beatOf(NoteValue::Half, {60, 64}, 1));
            } else {
                for (int k = 0; k < 3; ++k) {
                    auto third = beatOf(NoteValue::Quarter, {65 + k});
                    RhythmValue rhythm(NoteValue::Quarter);
                    rhythm.setPrimaryTupletRatio({3, 2});
                    third->setRhythmValue(rhythm);
                    voice.addBeat(third);
                }
                auto grace = beatOf(NoteValue::Eighth, {72});
                grace->setGraceType(GraceType::BeforeBeat);
                voice.addBeat(grace);
                voice.addBeat(beatOf(NoteValue::Quarter, {71}));
            }
            if (i == 1 || i == 5)
                model.track(0)->bar(i)->ensureVoice(1)->addBeat(beatOf(NoteValue::Half, {48}, 1));
            Voice &low = *model.track(1)->bar(i)->ensureVoice(0);
            low.addBeat(beatOf(NoteValue::Quarter, {50}));
            low.addBeat(beatOf(NoteValue::Half, {55}));
        }
        model.track(1)->bar(1)->voice(0)->beat(1)->notes()[0]->setTieOrigin(true);
        model.track(1)->bar(2)->voice(0)->clear();
        model.track(1)->bar(2)->voice(0)->addBeat(beatOf(NoteValue::Half, {55}, 1));
        model.track(1)->bar(2)->voice(0)->beat(0)->notes()[0]->setTied(true);
    }
};

TEST_F(WaltzTest, isHeardTheSameInAnotherMeterAndBack)
{
    const auto heard = heardNotes(model);
    ASSERT_TRUE(score.setMasterTimeSignature(0, 6, {4, 4}));
    ASSERT_TRUE(score.arrangeBars(0, 6));
    EXPECT_EQ(brokenRules(score), "");
    EXPECT_EQ(model.masterTrack()->masterBarCount(), 7U);
    EXPECT_EQ(heardNotes(model), heard);
    for (const auto &bar : model.track(1)->bars())
        for (const auto &voice : bar->voices())
            EXPECT_TRUE(!voice || voice->length() <= rational(4)) << bar->index();

    ASSERT_TRUE(score.setMasterTimeSignature(0, 6, {3, 4}));
    ASSERT_TRUE(score.arrangeBars(0, 6));
    EXPECT_EQ(model.masterTrack()->masterBarCount(), 7U);
    EXPECT_EQ(heardNotes(model), heard);
    EXPECT_TRUE(model.track(0)->bar(3)->voice(0)->beat(0)->isWholeBarRest());
}

TEST_F(WaltzTest, takesMoreBarsInAShorterMeterAndNoneForRests)
{
    const auto heard = heardNotes(model);
    const auto faster = tempo(3, 200);
    ASSERT_TRUE(score.modifyMasterTrackAutomations({}, {&faster}));
    // Held over the end of what is barred anew.
    Note &held = *model.track(1)->bar(5)->voice(0)->beat(1)->notes()[0];
    Beat &next = *model.track(1)->bar(6)->voice(0)->beat(0);
    held.setTieOrigin(true);
    next.notes()[0]->setMidi(55);
    next.notes()[0]->setTied(true);
    ASSERT_TRUE(score.setMasterTimeSignature(0, 5, {2, 4}));
    expectUndoable(score, [&] { return score.arrangeBars(0, 5); });
    ASSERT_TRUE(score.arrangeBars(0, 5));
    EXPECT_TRUE(held.isTieOrigin());
    EXPECT_TRUE(next.notes()[0]->isTied());
    // It began the tenth quarter.
    ASSERT_NE(model.masterTrack()->automation(Automation::Tempo, 4, 1), nullptr);
    score.commandStack().undo();
    score.commandStack().undo();
    held.setTieOrigin(false);
    next.notes()[0]->setTied(false);
    next.notes()[0]->setMidi(50);
    ASSERT_TRUE(score.setMasterTimeSignature(0, 6, {2, 4}));
    expectUndoable(score, [&] { return score.arrangeBars(0, 6); });
    ASSERT_TRUE(score.arrangeBars(0, 6));
    EXPECT_EQ(model.masterTrack()->masterBarCount(), 11U);
    EXPECT_EQ(heardNotes(model), heard);
}

TEST_F(WaltzTest, leavesFreeTimeAndBarsOfTheirOwnLengthAlone)
{
    model.masterTrack()->masterBar(0)->setOwnLength(rational(3));
    ASSERT_TRUE(score.setMasterBarFreeTime(4, 4, true));
    ASSERT_TRUE(score.setMasterTimeSignature(0, 6, {4, 4}));
    model.masterTrack()->masterBars()[5]->setFermatas(
        {FermataMark::at(rational(2), Fermata::Long)});
    const auto free = model.track(0)->bar(4)->clone();
    ASSERT_TRUE(score.arrangeBars(0, 6));
    EXPECT_EQ(*model.track(0)->bar(4), *free);
    EXPECT_EQ(model.track(1)->bar(0)->voice(0)->length(), rational(3));
    // Two bars of three quarters behind it: four and two.
    EXPECT_EQ(model.track(1)->bar(5)->voice(0)->length(), rational(4));
    EXPECT_EQ(model.track(1)->bar(6)->voice(0)->length(), rational(2));
    EXPECT_EQ(model.masterTrack()->masterBar(5)->fermatas().size(), 1U);
}

TEST_F(WaltzTest, writesOutWhatSimileMarksStandFor)
{
    model.track(1)->bar(1)->voice(0)->beat(1)->notes()[0]->setTieOrigin(false);
    ASSERT_TRUE(score.setBarSimileMark(1, 0, 2, 2, SimileMark::Simple));
    ASSERT_TRUE(score.setBarSimileMark(1, 0, 6, 6, SimileMark::Simple));
    ASSERT_TRUE(score.setMasterTimeSignature(0, 5, {4, 4}));
    expectUndoable(score, [&] { return score.arrangeBars(0, 5); });
    ASSERT_TRUE(score.arrangeBars(0, 5));
    EXPECT_FALSE(model.track(1)->bar(2)->isSimile());
    EXPECT_FALSE(model.track(1)->bar(6)->isSimile());
    EXPECT_EQ(model.track(1)->bar(6)->voice(0)->beatCount(), 2U);
    int quarters = 0;
    for (const auto &note : heardNotes(model))
        quarters += std::get<0>(note) == 1 && std::get<5>(note) == 50 ? 1 : 0;
    EXPECT_EQ(quarters, 7);
}

// Its grace beats wait for the beat behind, which another one led to.
TEST_F(WaltzTest, takesSlursOffBehindWhatIsWrittenOut)
{
    Voice &repeated = *model.track(1)->bar(1)->voice(0);
    repeated.beat(1)->notes()[0]->setTieOrigin(false);
    repeated.addBeat(beatOf(RhythmValue::NoteValue::Eighth, {57}));
    repeated.beat(2)->setGraceType(GraceType::BeforeBeat);
    model.track(1)->bar(2)->voice(0)->beat(0)->notes()[0]->setTied(false);
    model.track(1)->bar(2)->voice(0)->beat(0)->setSlurredToNext(true);
    model.track(1)->bar(3)->voice(0)->beat(0)->setSlurredToPrevious(true);
    ASSERT_TRUE(score.setBarSimileMark(1, 0, 2, 2, SimileMark::Simple));
    ASSERT_EQ(brokenRules(score), "");
    ASSERT_TRUE(score.setMasterTimeSignature(0, 5, {4, 4}));
    expectUndoable(score, [&] { return score.arrangeBars(0, 5); });
}

TEST_F(WaltzTest, takesSlursOffCopiesAtTheEndOfTheStaff)
{
    model.track(1)->bar(5)->voice(0)->beat(1)->setSlurredToNext(true);
    model.track(1)->bar(6)->voice(0)->beat(0)->setSlurredToPrevious(true);
    ASSERT_TRUE(score.setBarSimileMark(1, 0, 6, 6, SimileMark::Simple));
    ASSERT_EQ(brokenRules(score), "");
    expectUndoable(score, [&] { return score.arrangeBars(6, 6); });
}

TEST(CompleteReduceBarsTest, fillsByTheBeatAndNeverCutsNotes)
{
    RichScore rich;
    ASSERT_TRUE(rich.score.setBeatRhythm(rich.from(1, 2, 1, 3), eighth));
    expectUndoable(rich.score,
                   [&] { return rich.score.completeReduceBarsWithRests(rich.everything(0, 5)); });
    ASSERT_TRUE(rich.score.completeReduceBarsWithRests(rich.everything(0, 5)));
    const Voice &voice = *rich.model.track(0)->bar(1)->voice(0);
    EXPECT_EQ(voice.length(), rational(4));
    EXPECT_EQ(voice.beats().back()->rhythmValue().getLength(), rational(1, 2));
    ASSERT_TRUE(rich.score.setMasterTimeSignature(0, 5, {3, 4}));
    // Too long by notes: there is nothing that may go.
    EXPECT_FALSE(rich.score.completeReduceBarsWithRests(rich.everything(0, 0)));
    ASSERT_TRUE(rich.score.completeReduceBarsWithRests(rich.everything(1, 1)));
}

/// What a bar is filled with behind a note of a length.
std::string filledBehind(const TimeSignature &meter, const RhythmValue &note)
{
    SmallScore small;
    EXPECT_TRUE(small.score.setMasterTimeSignature(0, 5, meter));
    Voice &voice = *small.model.track(0)->bar(5)->ensureVoice(0);
    const auto beat = std::make_shared<Beat>(note);
    beat->addNote(std::make_shared<Note>(60));
    voice.addBeat(beat);
    EXPECT_TRUE(small.score.completeReduceBarsWithRests(small.everything(5, 5)));
    EXPECT_EQ(voice.length(), meter.barLength());
    std::string lengths;
    for (unsigned i = 1; i < voice.beatCount(); ++i)
        lengths += voice.beats()[i]->length().toString() + ' ';
    return lengths;
}

TEST(CompleteReduceBarsTest, writesTheRestsThatReadersOfAMeterExpect)
{
    using NoteValue = RhythmValue::NoteValue;
    RhythmValue ofTriplet(NoteValue::Eighth);
    ofTriplet.setPrimaryTupletRatio({3, 2});
    const struct {
        TimeSignature meter;
        RhythmValue note;
        const char *rests; ///< in quarters
    } rows[] = {
        {{4, 4}, RhythmValue(NoteValue::Half), "2 "},
        {{4, 4}, RhythmValue(NoteValue::Quarter), "1 2 "},
        {{4, 4}, RhythmValue(NoteValue::Quarter, 1), "1/2 2 "},
        {{4, 4}, RhythmValue(NoteValue::Half, 1), "1 "},
        {{4, 4}, RhythmValue(NoteValue::Sixteenth), "1/4 1/2 1 2 "},
        {{4, 4}, ofTriplet, "1/3 1/3 1 2 "},
        {{3, 4}, RhythmValue(NoteValue::Quarter), "1 1 "},
        {{3, 4}, RhythmValue(NoteValue::Half), "1 "},
        {{2, 4}, RhythmValue(NoteValue::Eighth), "1/2 1 "},
        {{5, 4}, RhythmValue(NoteValue::Quarter), "1 1 1 1 "},
        {{2, 2}, RhythmValue(NoteValue::Quarter), "1 2 "},
        {{4, 2}, RhythmValue(NoteValue::Half), "2 4 "},
        {{3, 8}, RhythmValue(NoteValue::Eighth), "1/2 1/2 "},
        {{6, 8}, RhythmValue(NoteValue::Eighth), "1/2 1/2 3/2 "},
        {{6, 8}, RhythmValue(NoteValue::Quarter), "1/2 3/2 "},
        {{9, 8}, RhythmValue(NoteValue::Quarter, 1), "3/2 3/2 "},
        {{12, 8}, RhythmValue(NoteValue::Quarter, 1), "3/2 3 "},
        {{12, 8}, RhythmValue(NoteValue::Sixteenth), "1/4 1/2 1/2 3/2 3 "},
    };
    for (const auto &row : rows)
        EXPECT_EQ(filledBehind(row.meter, row.note), row.rests)
            << row.meter.getNumerator() << '/' << row.meter.getDenominator() << " behind "
            << row.note.getLength().toString();
}

TEST(CompleteReduceBarsTest, aBarOfWhichNothingStaysHasTheRestThatFillsIt)
{
    SmallScore small;
    Voice &voice = *small.model.track(0)->bar(5)->ensureVoice(0);
    voice.addBeat(std::make_shared<Beat>(RhythmValue(RhythmValue::NoteValue::Whole, 1)));
    ASSERT_TRUE(small.score.completeReduceBarsWithRests(small.everything(5, 5)));
    ASSERT_EQ(voice.beatCount(), 1U);
    EXPECT_TRUE(voice.beat(0)->isWholeBarRest());
}

TEST(MoveVoiceTest, keepsTheTimeAndPartsTies)
{
    RichScore rich;
    ASSERT_TRUE(rich.score.moveVoice(rich.from(1, 3, 1, 3), 1));
    const auto bar = rich.model.track(0)->bar(1);
    ASSERT_EQ(bar->voice(1)->beats().back()->noteCount(), 1U);
    EXPECT_EQ(bar->voice(1)->beatDrawingOffset(*bar->voice(1)->beats().back()), rational(3));
    EXPECT_TRUE(bar->voice(1)->beat(0)->isPlaceHolder());
    EXPECT_FALSE(bar->voice(1)->beats().back()->notes()[0]->isTieOrigin());
    EXPECT_FALSE(rich.model.track(0)->bar(2)->voice(0)->beat(0)->notes()[0]->isTied());
    EXPECT_TRUE(bar->voice(0)->beat(3)->isRest());
    // Back to where rests give way, over a bar whose other beats stay.
    ASSERT_TRUE(rich.score.moveVoice(
        ScoreModelRange(rich.at(1, static_cast<int>(bar->voice(1)->beatCount()) - 1, 0, 1)), 0));
    EXPECT_EQ(bar->voice(1), nullptr);
    EXPECT_EQ(bar->voice(0)->beat(3)->noteCount(), 1U);
}

} // namespace
