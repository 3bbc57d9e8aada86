// SPDX-License-Identifier: MIT
#include "ToolRun.h"

#include "io/Scores.h"

#include "common/Terminal.h"
#include "show/ShowCommand.h"
#include "support/NativeDocument.h"

#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <QDir>

#include <map>

namespace {

using namespace zarn;
using namespace zarn::test;

constexpr const char *TemplateFolder = ":/track_templates/004.Midi";
constexpr int PercussionBank = 120;

/// The built-in templates by their number, as start-up finds them.
std::map<int, QFileInfo> templatesIn(const QString &folder)
{
    std::map<int, QFileInfo> files;
    for (const QFileInfo &file : QDir(QLatin1String(TemplateFolder) + folder)
                                     .entryInfoList({QStringLiteral("*.zarn")}, QDir::Files))
        EXPECT_TRUE(files.emplace(file.fileName().mid(4, 3).toInt(), file).second)
            << file.fileName().toStdString();
    return files;
}

std::map<int, QFileInfo> melodicTemplates()
{
    std::map<int, QFileInfo> all;
    for (const QString &folder : QDir(QLatin1String(TemplateFolder)).entryList(QDir::Dirs))
        if (!folder.startsWith(QStringLiteral("017")))
            all.merge(templatesIn(QLatin1Char('/') + folder));
    return all;
}

std::map<int, QFileInfo> percussionTemplates()
{
    return templatesIn(QStringLiteral("/017.Drums"));
}

std::shared_ptr<Track> trackOf(const QFileInfo &file)
{
    const auto model = ::test::readNative(contentOf(file.filePath()));
    EXPECT_EQ(model->trackCount(), 1U);
    EXPECT_EQ(model->masterTrack()->masterBarCount(), 0U);
    return model->track(0)->clone();
}

/// Rows of a facts file as lists of cells, without the heading; none when it is not here.
std::vector<QStringList> factsIn(const char *name)
{
    QFile file(QStringLiteral(ZARN_SOURCE_DIR "/../shared/facts/") + QLatin1String(name));
    std::vector<QStringList> rows;
    if (!file.open(QIODevice::ReadOnly))
        return rows;
    file.readLine();
    while (!file.atEnd())
        rows.push_back(QString::fromUtf8(file.readLine()).trimmed().split(QLatin1Char(',')));
    return rows;
}

/// What a user does first with a new track: two bars, and a note on every staff.
void writeSomething(Score &score)
{
    const Track &track = *score.track(0);
    for (unsigned staff = 0; staff < track.staffCount(); ++staff) {
        const ScoreModelIndex place(score.scoreModel().get(), 0, 0, static_cast<int>(staff), 0, 0);
        ASSERT_TRUE(score.createBeat(place, RhythmValue(RhythmValue::NoteValue::Half)));
        ASSERT_TRUE(track.staff(staff)->isFretted() ? score.setStringedNote(place, 1, 3)
                                                    : score.setMIDINote(place, 60));
    }
}

/// A score from each template is saved, read back equal, and shown.
class EveryTrackTemplate : public ::testing::TestWithParam<bool> { };

TEST_P(EveryTrackTemplate, makesScoresThatAreSavedReadAndShown)
{
    const auto files = GetParam() ? percussionTemplates() : melodicTemplates();
    EXPECT_EQ(files.begin()->first, GetParam() ? 35 : 0);
    EXPECT_EQ(files.rbegin()->first, GetParam() ? 81 : 127);
    EXPECT_EQ(files.size(), GetParam() ? 47U : 128U);
    for (const auto &[number, file] : files) {
        SCOPED_TRACE(file.fileName().toStdString());
        Score score;
        ASSERT_TRUE(score.createBars(0, 2));
        ASSERT_TRUE(score.insertTrack(0, trackOf(file)));
        writeSomething(score);
        const ScoreModel &model = *score.scoreModel();
        EXPECT_TRUE(checkModel(model).empty());
        const std::string saved = ::test::writeNative(model);
        EXPECT_TRUE(*::test::readNative(saved) == model);
        EXPECT_EQ(::test::writeNative(*::test::readNative(saved)), saved);

        sheet::ShownPart part;
        part.lastBar = 1;
        const std::string picture = tool::pictureOf(model, part, tool::Terminal(100, true, false));
        const Track &track = *score.track(0);
        EXPECT_TRUE(contains(picture, "1 " + track.name() + ": ")) << picture;
        EXPECT_TRUE(contains(picture, '\n' + track.shortName())) << picture;

        ASSERT_EQ(track.sounds().size(), 1U);
        const Sound &sound = *track.sounds().front();
        EXPECT_EQ(sound.name(), track.name());
        const bool isNoise = !GetParam() && (number == 55 || number >= 120);
        EXPECT_EQ(sound.orkaSound().soundbankPatchId().empty(), isNoise) << sound.name();
        EXPECT_EQ(sound.midiSound(), GetParam() ? MIDISound(0, PercussionBank) : MIDISound(number));
        EXPECT_FALSE(GetParam() && !InstrumentSet::isUnpitched(track.type()));
        if (track.staffCount() == 2) {
            EXPECT_EQ(track.bar(1, 0)->clef(), ClefType::G2);
            EXPECT_EQ(track.bar(1, 1)->clef(), ClefType::F4);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(GeneralMidi, EveryTrackTemplate, ::testing::Bool());

TEST(TrackTemplates, instrumentsAreSetUpAsTheirPlayersExpect)
{
    struct Expected {
        int program;
        InstrumentSet::Type type;
        unsigned staves;
        int transposition;
        std::size_t strings;
    };
    const Expected all[] = {
        {0, InstrumentSet::acousticPiano, 2, 0, 0},  {9, InstrumentSet::xylophone, 1, 24, 0},
        {12, InstrumentSet::xylophone, 2, 0, 0},     {21, InstrumentSet::accordion, 2, 0, 0},
        {24, InstrumentSet::nylonGuitar, 1, -12, 6}, {33, InstrumentSet::electricBass, 1, -12, 4},
        {40, InstrumentSet::violin, 1, 0, 4},        {46, InstrumentSet::harp, 2, 0, 0},
        {48, InstrumentSet::violin, 2, 0, 0},        {56, InstrumentSet::trumpet, 1, -2, 0},
        {60, InstrumentSet::frenchHorn, 1, -7, 0},   {64, InstrumentSet::saxophone, 1, -2, 0},
        {65, InstrumentSet::saxophone, 1, -9, 0},    {66, InstrumentSet::saxophone, 1, -14, 0},
        {67, InstrumentSet::saxophone, 1, -21, 0},   {71, InstrumentSet::clarinet, 1, -2, 0},
        {72, InstrumentSet::piccolo, 1, 12, 0},      {105, InstrumentSet::banjo, 1, -12, 5},
        {106, InstrumentSet::banjo, 1, 0, 3},        {107, InstrumentSet::banjo, 1, 0, 0},
    };
    const auto files = melodicTemplates();
    for (const Expected &expected : all) {
        SCOPED_TRACE(expected.program);
        const auto track = trackOf(files.at(expected.program));
        EXPECT_EQ(track->type(), expected.type);
        EXPECT_EQ(track->staffCount(), expected.staves);
        EXPECT_EQ(track->transpositionOffset(), expected.transposition);
        for (const auto &staff : track->staves())
            EXPECT_EQ(staff->tuning().stringCount(), expected.strings);
    }
}

/// The importer knows the categories of the programs too.
TEST(TrackTemplates, areOfTheCategoriesThatAnImporterGivesToTheirPrograms)
{
    const QString document = QStringLiteral(
        "<score-partwise><part-list><score-part id='P'><part-name/>"
        "<midi-instrument id='I'><midi-program>%1</midi-program></midi-instrument></score-part>"
        "</part-list><part id='P'><measure number='1'><note><pitch><step>C</step><octave>4</octave>"
        "</pitch><duration>1</duration></note></measure></part></score-partwise>");
    for (const auto &[program, file] : melodicTemplates()) {
        io::ImportReport report;
        const auto model = scores::import(document.arg(program + 1).toUtf8(), report);
        EXPECT_EQ(model->track(0)->type(), trackOf(file)->type()) << program;
    }
}

TEST(TrackTemplates, agreeWithTheListOfProgramsAndKeys)
{
    const auto programs = factsIn("gm_programs.csv");
    const auto keys = factsIn("gm_percussion.csv");
    if (programs.empty() || keys.empty())
        GTEST_SKIP() << "the facts are not here";
    const auto melodic = melodicTemplates();
    for (const QStringList &row : programs) {
        const QFileInfo &file = melodic.at(row.at(0).toInt());
        EXPECT_EQ(file.fileName().mid(8), row.at(1) + QStringLiteral(".zarn"));
        EXPECT_EQ(file.dir().dirName(), row.at(2));
        const auto track = trackOf(file);
        EXPECT_EQ(QString::fromStdString(track->name()), row.at(1));
        EXPECT_EQ(QString::fromStdString(InstrumentSet::typeToString(track->type())), row.at(3));
    }
    const auto percussion = percussionTemplates();
    for (const QStringList &row : keys) {
        const QFileInfo &file = percussion.at(row.at(0).toInt());
        EXPECT_EQ(file.fileName(),
                  QStringLiteral("017.%1.%2.zarn")
                      .arg(row.at(0).toInt(), 3, 10, QLatin1Char('0'))
                      .arg(row.at(1)));
        // A key belongs to the drum kit, to a kit of its own kind ("conga", "congas"), or is an
        // instrument by itself.
        const QString type =
            QString::fromStdString(InstrumentSet::typeToString(trackOf(file)->type()));
        EXPECT_TRUE(type == QStringLiteral("drumKit") || type.startsWith(row.at(2)))
            << type.toStdString();
    }
    EXPECT_EQ(trackOf(percussion.at(35))->type(), InstrumentSet::drumKit);
}

} // namespace
