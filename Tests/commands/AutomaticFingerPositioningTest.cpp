// SPDX-License-Identifier: MIT
#include "support/CommandLaw.h"
#include "support/ScoreDump.h"

#include <ZarnCore/fingering/ZarnFingeringReport.h>
#include <ZarnCore/fingering/ZarnPassageReader.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <gtest/gtest.h>

namespace {

using namespace zarn;
using namespace zarn::fingering;

/// A guitar and a piano of two bars without a note; pitches are written an octave above what
/// sounds.
struct AutomaticFingerPositioningTest : testing::Test {
    Score score;
    ScoreModel &model = *score.scoreModel();

    AutomaticFingerPositioningTest()
    {
        model.createAndInsertTrack(0, InstrumentSet::steelGuitar);
        model.createAndInsertTrack(1, InstrumentSet::chordophone);
        model.insertEmptyBarColumns(0, 2);
    }

    Beat &add(unsigned bar, std::initializer_list<int> sounding, unsigned voice = 0,
              unsigned track = 0)
    {
        const auto beat = std::make_shared<Beat>();
        for (const int pitch : sounding)
            beat->addNote(std::make_shared<Note>(pitch + 12));
        model.track(track)->bar(bar)->ensureVoice(voice)->addBeat(beat);
        return *beat;
    }

    ScoreModelIndex at(int bar, int beat) const
    {
        return {score.scoreModel().get(), 0, bar, beat, 0, 0};
    }
    ScoreModelRange all() const
    {
        return {at(0, -1), at(1, -1),
                SelectionMode::MultiSelection | SelectionMode::MultiVoice
                    | SelectionMode::MultiTrack};
    }

    /// "5/0 4/1": string and fret of each note.
    static std::string places(const Beat &beat)
    {
        std::string text;
        for (const auto &note : beat.notes())
            text += (text.empty() ? "" : " ") + std::to_string(note->string()) + "/"
                + std::to_string(note->fret());
        return text;
    }
};

TEST_F(AutomaticFingerPositioningTest, fingersAScoreOnceAndForAll)
{
    const Beat &chord = add(0, {48, 52, 55, 60, 64});
    const Beat &scale = add(0, {50});
    add(1, {60}, 0, 1);
    const auto report = std::make_shared<FingeringReport>();
    expectUndoable(score, [&] { return score.automaticFingerPositioning(all(), {}, report); });
    ASSERT_TRUE(score.automaticFingerPositioning(all(), {}, report));
    EXPECT_EQ(places(chord), "1/3 2/2 3/0 4/1 5/0");
    EXPECT_EQ(places(scale), "2/0");
    EXPECT_EQ(report->noteCount, 6U);
    EXPECT_EQ(report->movedCount, 6U);
    EXPECT_TRUE(report->unplayable.empty());

    const std::string once = dump(score);
    ASSERT_TRUE(score.automaticFingerPositioning(all(), {}, report));
    EXPECT_EQ(dump(score), once);
    EXPECT_EQ(report->movedCount, 0U);
}

TEST_F(AutomaticFingerPositioningTest, writesFingersOnRequestAndKeepsThePlayers)
{
    const Beat &chord = add(0, {48, 52, 55, 60, 64});
    FingeringOptions options;
    options.fingers = LeftFingers::Written;
    ASSERT_TRUE(score.automaticFingerPositioning(all(), options));
    const Fingering expected[] = {Fingering::Annular, Fingering::Middle, Fingering::Open,
                                  Fingering::Index, Fingering::Open};
    for (unsigned i = 0; i < 5; ++i)
        EXPECT_EQ(chord.notes()[i]->leftFingering(), expected[i]) << i;

    chord.notes()[0]->setLeftFingering(Fingering::Little);
    chord.notes()[1]->setLeftFingering(Fingering::None);
    options.given = GivenStrings::Kept;
    ASSERT_TRUE(score.automaticFingerPositioning(all(), options));
    EXPECT_EQ(chord.notes()[0]->leftFingering(), Fingering::Little);
    EXPECT_NE(chord.notes()[1]->leftFingering(), Fingering::None);
}

TEST_F(AutomaticFingerPositioningTest, goesOnFromWhatThePlayerHasFixed)
{
    Beat &before = add(0, {64});
    const Beat &asked = add(0, {62, 66});
    Beat &behind = add(1, {64});
    for (Beat *beat : {&before, &behind}) {
        beat->notes()[0]->setString(3);
        beat->notes()[0]->setFret(9);
    }
    ASSERT_TRUE(score.automaticFingerPositioning(ScoreModelRange(at(0, 1)), {}));
    EXPECT_EQ(places(before), "3/9");
    for (const auto &note : asked.notes())
        EXPECT_GE(note->fret(), 7) << "the hand stays where it is";

    FingeringOptions options;
    options.given = GivenStrings::Kept;
    ASSERT_TRUE(score.automaticFingerPositioning(all(), options));
    EXPECT_EQ(places(behind), "3/9");
}

TEST_F(AutomaticFingerPositioningTest, reportsWhatNoHandCanPlayAndFingersTheRest)
{
    Beat &low = add(0, {30, 64});
    low.notes()[0]->setString(0);
    low.notes()[0]->setFret(0);
    low.notes()[0]->setMidi(20);
    const Beat &close = add(1, {40, 41});
    const auto report = std::make_shared<FingeringReport>();
    low.notes()[0]->setFret(Note::Unset);
    ASSERT_TRUE(score.automaticFingerPositioning(all(), {}, report));
    EXPECT_EQ(places(low), "-1/-1 5/0");
    EXPECT_EQ(places(close), "-1/-1 0/1");
    ASSERT_EQ(report->unplayable.size(), 2U);
    EXPECT_EQ(report->unplayable[0].kind, FingeringProblem::Kind::NotOnInstrument);
    EXPECT_EQ(report->unplayable[0].pitch, 20);
    EXPECT_EQ(report->unplayable[1].kind, FingeringProblem::Kind::NoStringLeft);
    EXPECT_EQ(report->unplayable[1].bar, 1U);
    EXPECT_EQ(low.notes()[0]->midi(), 20) << "the pitch is not lost";
}

TEST_F(AutomaticFingerPositioningTest, keepsTiesOverTheEndsOfASelection)
{
    Beat &first = add(0, {67});
    Beat &second = add(1, {67});
    first.notes()[0]->setTieOrigin(true);
    second.notes()[0]->setTied(true);
    second.notes()[0]->setString(4);
    second.notes()[0]->setFret(8);
    ASSERT_TRUE(score.automaticFingerPositioning(ScoreModelRange(at(0, 0)), {}));
    EXPECT_EQ(places(first), "4/8");
    EXPECT_EQ(brokenRules(score), "");
}

} // namespace
