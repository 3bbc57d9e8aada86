// SPDX-License-Identifier: MIT
#include "ToolRun.h"

#include "common/Choices.h"
#include "common/Documents.h"
#include "common/Terminal.h"

#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/model/ZarnScoreModel.h>

namespace {

using namespace zarn;
using namespace zarn::test;

class New : public ::testing::Test {
protected:
    ToolRun make(const QStringList &options) const
    {
        return runTool(QStringList(QStringLiteral("new")) + options + QStringList(path));
    }

    std::shared_ptr<ScoreModel> made() const
    {
        const tool::Terminal quiet(80, true, false);
        return tool::openDocument(path.toStdString(), quiet).model;
    }

    Folder folder;
    QString path = folder.file("new.zarn");
};

QStringList words(std::initializer_list<const char *> texts)
{
    QStringList list;
    for (const char *const text : texts)
        list.append(QString::fromUtf8(text));
    return list;
}

TEST_F(New, aBandIsSetUpAsAskedAndShown)
{
    const ToolRun run =
        make(words({"--track", "steelGuitar", "--tuning", "Drop D", "-t",       "bass",  "-t",
                    "drums",   "--bars",      "12",       "--time", "3/4",      "--key", "Em",
                    "--tempo", "96",          "--title",  "Waltz",  "--artist", "Nobody"}));
    EXPECT_EQ(run.code, 0) << run.err;
    expectGolden("new.txt", run.out);
    const auto model = made();
    ASSERT_EQ(model->trackCount(), 3U);
    EXPECT_TRUE(checkModel(*model).empty());
    EXPECT_EQ(model->masterTrack()->masterBarCount(), 12U);
    EXPECT_EQ(model->masterTrack()->masterBar(11)->timeSignature(), TimeSignature(3, 4));
    EXPECT_EQ(model->masterTrack()->masterBar(11)->concertKeySignature().accidentalCount(), 1);
    EXPECT_FALSE(model->masterTrack()->masterBar(11)->concertKeySignature().isMajor());
    const auto tempos = model->masterTrack()->automations(Automation::Tempo);
    ASSERT_EQ(tempos.size(), 1U);
    EXPECT_EQ(static_cast<const TempoAutomation &>(*tempos.front()).quarterValue(), 96);
    const GuitarTuning &tuning = model->track(0)->staff(0)->tuning();
    EXPECT_EQ(tuning.midiNumbers(), (std::vector<int>{38, 45, 50, 55, 59, 64}));
    EXPECT_EQ(tuning.name(), "Drop D");
    EXPECT_EQ(model->track(1)->type(), InstrumentSet::electricBass);
    EXPECT_EQ(model->track(2)->type(), InstrumentSet::drumKit);
}

TEST_F(New, tracksAreNamedByProgramCategoryOrNameWhateverTheCase)
{
    const ToolRun run =
        make(words({"-t", "41", "-t", "acoustic guitar (NYLON)", "-t", "Steel guitar", "-t",
                    "ukulele", "--tuning", "C4 G3 E4 A4", "-t", "cowbell", "-t", "Side Stick", "-t",
                    "saxophone", "-t", "accordion"}));
    ASSERT_EQ(run.code, 0) << run.err;
    const auto model = made();
    struct Expected {
        const char *name;
        InstrumentSet::Type type;
        MIDISound sound;
    };
    const Expected all[] = {
        {"Violin", InstrumentSet::violin, MIDISound(40)},
        {"Acoustic Guitar (nylon)", InstrumentSet::nylonGuitar, MIDISound(24)},
        {"Steel Guitar", InstrumentSet::steelGuitar, MIDISound(25)},
        {"Ukulele", InstrumentSet::ukulele, MIDISound()},
        {"Cowbell", InstrumentSet::cowbell, MIDISound(0, 120)},
        {"Drum Kit", InstrumentSet::drumKit, MIDISound(0, 120)},
        {"Saxophone", InstrumentSet::saxophone, MIDISound(65)},
        {"Accordion", InstrumentSet::accordion, MIDISound(21)},
    };
    ASSERT_EQ(model->trackCount(), std::size(all));
    for (unsigned i = 0; i < std::size(all); ++i) {
        const Track &track = *model->track(i);
        SCOPED_TRACE(all[i].name);
        EXPECT_EQ(track.name(), all[i].name);
        EXPECT_EQ(track.type(), all[i].type);
        const bool hasSound = track.type() != InstrumentSet::ukulele; // General MIDI has none
        ASSERT_EQ(track.sounds().size(), hasSound ? 1U : 0U);
        EXPECT_TRUE(!hasSound || track.sounds().front()->midiSound() == all[i].sound);
    }
    EXPECT_EQ(model->track(3)->staff(0)->tuning().midiNumbers(),
              (std::vector<int>{60, 55, 64, 69}));
}

TEST_F(New, stringsAreCountedBeforeTheyAreTuned)
{
    const ToolRun run = make(words(
        {"-t", "electricGuitar", "--strings", "7", "--tuning", "drop a", "-t", "bass", "-s", "5"}));
    ASSERT_EQ(run.code, 0) << run.err;
    const auto model = made();
    EXPECT_EQ(model->track(0)->staff(0)->tuning().midiNumbers(),
              (std::vector<int>{33, 40, 45, 50, 55, 59, 64}));
    EXPECT_EQ(model->track(1)->staff(0)->tuning().stringCount(), 5U);
}

TEST_F(New, everyCategoryMakesATrack)
{
    QStringList options;
    for (const auto &choice : tool::instrumentChoices())
        options << QStringLiteral("-t") << choice.first;
    const ToolRun run = make(options + words({"--bars", "1"}));
    ASSERT_EQ(run.code, 0) << run.err;
    const auto model = made();
    ASSERT_EQ(model->trackCount(), tool::instrumentChoices().size());
    unsigned index = 0;
    for (const auto &choice : tool::instrumentChoices())
        EXPECT_EQ(model->track(index++)->type(), static_cast<InstrumentSet::Type>(choice.second));
    EXPECT_TRUE(checkModel(*model).empty());
}

TEST_F(New, aFileThatIsThereIsOnlyReplacedOnRequest)
{
    writeFile(path, "music");
    const ToolRun refused = make(words({"-t", "piano"}));
    EXPECT_EQ(refused.code, 1);
    EXPECT_TRUE(contains(refused.err, "--force")) << refused.err;
    EXPECT_EQ(contentOf(path), "music");
    EXPECT_EQ(make(words({"-t", "piano", "--force"})).code, 0);
    EXPECT_EQ(made()->track(0)->staffCount(), 2U);
}

TEST_F(New, whatIsWrongIsNamedAndNothingIsWritten)
{
    const std::pair<QStringList, const char *> all[] = {
        {{}, "--track is missing"},
        {words({"-t", "steelGuitarr"}), "did you mean \"steelGuitar\"?"},
        {words({"-t", "0"}), "\"0\" is not an instrument"},
        {words({"-t", "129"}), "\"129\" is not an instrument"},
        {words({"--tuning", "Drop D", "-t", "guitar"}), "behind the --track"},
        {words({"-t", "guitar", "--tuning", "Drop G sharp of all things"}),
         "zarn catalog tunings --instrument Guitar"},
        {words({"-t", "guitar", "--tuning", "Dorp D"}), "did you mean \"Drop D\"?"},
        {words({"-t", "guitar", "--tuning", "E2 A2 H2"}), "neither the name of a tuning"},
        {words({"-t", "guitar", "--tuning", "E2 E2 E2 E2 E2 E2 E2 E2 E2 E2 E2 E2 E2"}),
         "these are 13 notes, but there are 6 strings"},
        {words({"-t", "guitar", "--tuning", "Chicago"}), "\"Chicago\" is for 4 strings"},
        {words({"-t", "guitar", "--strings", "77"}), "no tuning with 77 strings"},
        {words({"-t", "piano", "--tuning", "Drop D"}), "--tuning: there are no strings to tune"},
        {words({"-t", "guitar", "--time", "3/5"}), "a time such as 3/4"},
        {words({"-t", "guitar", "--key", "H"}), "a key such as"},
        {words({"-t", "guitar", "--bars", "0"}), "--bars takes a number from 1"},
        {words({"-t", "guitar", "--tempo", "fast"}), "--tempo takes a number"},
    };
    for (const auto &[options, reason] : all) {
        const ToolRun run = make(options);
        EXPECT_EQ(run.code, 2) << reason;
        EXPECT_TRUE(contains(run.err, reason)) << run.err;
        EXPECT_FALSE(QFile::exists(path)) << reason;
    }
    const ToolRun unknown = runTool({QStringLiteral("new"), QStringLiteral("-t"),
                                     QStringLiteral("piano"), folder.file("new.doc")});
    EXPECT_EQ(unknown.code, 1);
    EXPECT_TRUE(contains(unknown.err, ".zarn")) << unknown.err;
}

} // namespace
