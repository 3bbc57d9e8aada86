// SPDX-License-Identifier: MIT
#include "RichScore.h"
#include "support/CommandLaw.h"
#include "support/NativeDocument.h"

#include <ZarnCore/model/clip/ZarnClip.h>
#include <ZarnCore/model/notes/ZarnFretting.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace rich;
using utils::rational;

struct PastingTest : testing::Test {
    RichScore rich;
    Score &score = rich.score;
    ScoreModel &model = rich.model;

    Voice &voice(unsigned bar, unsigned track = 0, unsigned slot = 0)
    {
        return *model.track(track)->bar(bar)->voice(slot);
    }
    int track(InstrumentSet::Type type)
    {
        const unsigned number = score.trackCount();
        EXPECT_TRUE(score.createTrack(number, type));
        return static_cast<int>(number);
    }
};

/// The keys of all notes of a bar, as they sound, in order.
std::vector<int> soundingKeys(const Track &track, unsigned bar)
{
    std::vector<int> keys;
    for (const auto &voice : track.bar(bar)->voices())
        for (unsigned i = 0; voice && i < voice->beatCount(); ++i)
            for (const auto &note : voice->beats()[i]->notes())
                keys.push_back(note->midi() + track.transpositionOffset());
    std::sort(keys.begin(), keys.end());
    return keys;
}

TEST_F(PastingTest, keepsWhatSoundsInOtherInstruments)
{
    const Clip clip = copyOfBars(model, rich.from(1, -1, 1, -1));
    const int clarinet = track(InstrumentSet::clarinet);
    const int bass = track(InstrumentSet::electricBass);
    const int drums = track(InstrumentSet::drumKit);
    for (const int number : {clarinet, bass, drums})
        ASSERT_TRUE(
            score.pasteBarRange(clip, 3, static_cast<unsigned>(number), 1, PasteMode::Replace));
    const auto keys = soundingKeys(*model.track(0), 1);
    EXPECT_EQ(soundingKeys(*model.track(static_cast<unsigned>(clarinet)), 3), keys);
    EXPECT_EQ(soundingKeys(*model.track(static_cast<unsigned>(bass)), 3), keys);
    EXPECT_EQ(soundingKeys(*model.track(static_cast<unsigned>(drums)), 3), std::vector<int>());
    EXPECT_EQ(voice(3, static_cast<unsigned>(drums)).length(), rational(4));
    const Staff &staff = *model.track(static_cast<unsigned>(bass))->staff(0);
    for (const auto &beat : staff.bar(3)->voice(0)->beats())
        for (const auto &note : beat->notes())
            if (note->string() >= 0) {
                EXPECT_EQ(writtenPitch(staff, note->string(), note->fret()), note->midi());
            }
    EXPECT_EQ(brokenRules(score), "");
}

TEST_F(PastingTest, fingersWhatOtherStringsPlay)
{
    const int bass = track(InstrumentSet::electricBass);
    const Staff &staff = *model.track(static_cast<unsigned>(bass))->staff(0);
    const auto expectPlayable = [&](unsigned bar) {
        for (const auto &beat : staff.bar(bar)->voice(0)->beats()) {
            std::set<int> strings;
            for (const auto &note : beat->notes()) {
                ASSERT_GE(note->string(), 0) << note->midi();
                EXPECT_EQ(writtenPitch(staff, note->string(), note->fret()), note->midi());
                EXPECT_TRUE(strings.insert(note->string()).second);
            }
        }
    };
    const Clip bars = copyOfBars(model, rich.from(0, -1, 0, -1));
    ASSERT_TRUE(score.pasteBarRange(bars, 3, static_cast<unsigned>(bass), 1, PasteMode::Replace));
    expectPlayable(3);
    const Clip beats = copyOfBeats(model, rich.from(0, 0, 0, 3));
    ASSERT_TRUE(score.pasteBeatRange(beats, rich.at(2, 0, bass), 2, PasteMode::Replace));
    expectPlayable(2);
    expectPlayable(3);
    score.commandStack().undo();
    score.commandStack().undo();
    EXPECT_FALSE(staff.bar(3)->hasBeats());
    EXPECT_EQ(brokenRules(score), "");
}

TEST_F(PastingTest, replacesTimeOverBarLinesAndCutsWhatItCovers)
{
    const Clip clip = copyOfBeats(model, ScoreModelRange(rich.at(1, 0, 1)));
    ASSERT_EQ(clip.model->track(0)->bar(0)->voice(0)->length(), rational(4));
    ASSERT_TRUE(
        score.setBeatRhythm(rich.from(2, 0, 2, 0), RhythmValue(RhythmValue::NoteValue::Half)));
    ASSERT_TRUE(score.setBarSimileMark(0, 0, 2, 2, SimileMark::None));
    ASSERT_TRUE(score.pasteBeatRange(clip, rich.at(1, 1), 1, PasteMode::Replace));
    // Three quarters, and one tied on that covers half of a half note.
    EXPECT_EQ(voice(1).length(), rational(4));
    EXPECT_TRUE(voice(1).beats().back()->notes()[0]->isTieOrigin());
    EXPECT_TRUE(voice(2).beat(0)->notes()[0]->isTied());
    EXPECT_EQ(voice(2).beat(0)->length(), rational(1));
    EXPECT_TRUE(voice(2).beat(1)->isRest());
    EXPECT_EQ(voice(2).beat(1)->length(), rational(1));
    EXPECT_TRUE(voice(2).beat(2)->hasNotes());
    EXPECT_EQ(brokenRules(score), "");
}

TEST_F(PastingTest, mergesNotesWhereTheyAre)
{
    // A whole note over four beats, of which one is a rest.
    const Clip clip = copyOfBeats(model, ScoreModelRange(rich.at(1, 0, 1)));
    ASSERT_TRUE(score.pasteBeatRange(clip, rich.at(0, 0), 1, PasteMode::Merge));
    ASSERT_EQ(voice(0).beatCount(), 4U);
    for (unsigned i = 0; i < 4; ++i) {
        const auto note = voice(0).beat(i)->noteWithMidi(72); // written an octave higher
        ASSERT_NE(note, nullptr) << i;
        EXPECT_EQ(note->isTied(), i != 0);
        EXPECT_EQ(note->isTieOrigin(), i != 3);
    }
    EXPECT_EQ(voice(0).beat(1)->noteCount(), 3U);
}

TEST_F(PastingTest, insertsBarsWithTheirFormAndKeepsTheTempoOfTheStart)
{
    ASSERT_TRUE(score.setMasterTimeSignature(2, 2, {3, 4}));
    const Clip clip = copyOfBars(model, rich.everything(2, 3));
    EXPECT_FALSE(clip.model->track(0)->bar(0)->isSimile()) << "nothing in the clip to repeat";
    EXPECT_TRUE(clip.model->track(0)->bar(0)->hasBeats());
    expectUndoable(score, [&] { return score.pasteBarRange(clip, 0, 0, 2, PasteMode::Insert); });
    ASSERT_TRUE(score.pasteBarRange(clip, 0, 0, 2, PasteMode::Insert));
    const MasterTrack &master = *model.masterTrack();
    EXPECT_EQ(master.masterBarCount(), 10U);
    EXPECT_EQ(master.masterBar(0)->timeSignature(), TimeSignature(3, 4));
    EXPECT_EQ(master.masterBar(2)->timeSignature(), TimeSignature(3, 4));
    EXPECT_EQ(master.masterBar(4)->timeSignature(), TimeSignature(4, 4));
    EXPECT_EQ(master.automation(Automation::Tempo, 0, 0)->value(), 120);
    EXPECT_EQ(master.automation(Automation::Tempo, 4, 0)->value(), 100);
}

TEST_F(PastingTest, clipsComeBackFromTexts)
{
    for (const Clip &clip :
         {copyOfBars(model, rich.everything(1, 3)), copyOfBeats(model, rich.from(0, 1, 1, 0))}) {
        const std::string text = io::NativeExporter().toText(clip);
        filesystem::RAMFileSystem files;
        const auto writer = files.open("clip.zarn", filesystem::OpenMode::Write);
        io::NativeExporter().write(clip, *writer);
        io::ImportReport report;
        const auto reader = files.open("clip.zarn", filesystem::OpenMode::Read);
        const Clip read = io::NativeImporter().readClip(*reader, report);
        EXPECT_EQ(*read.model, *clip.model);
        EXPECT_EQ(read.kind, clip.kind);
        EXPECT_EQ(read.hasColumns, clip.hasColumns);
        EXPECT_EQ(io::NativeExporter().toText(read), text);
        // What knows no clips reads a score.
        EXPECT_EQ(*test::readNative(text), *clip.model);
    }
}

TEST_F(PastingTest, anOlderCommandFindsItsDocumentAgain)
{
    ASSERT_TRUE(score.createBeat(rich.at(0, 0), eighth));
    const std::string before = test::writeNative(*score.scoreModel());
    const auto other = std::make_shared<ScoreModel>();
    ASSERT_TRUE(score.replaceScore(other));
    EXPECT_EQ(score.scoreModel(), other);
    EXPECT_EQ(score.scoreCursor().index().model(), other.get());
    ASSERT_TRUE(score.createBars(0, 2));
    score.commandStack().undo();
    score.commandStack().undo();
    EXPECT_EQ(test::writeNative(*score.scoreModel()), before);
    score.commandStack().undo();
    score.commandStack().redo();
    score.commandStack().redo();
    score.commandStack().redo();
    EXPECT_EQ(score.masterTrack()->masterBarCount(), 2U);
}

} // namespace
