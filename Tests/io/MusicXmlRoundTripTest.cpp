// SPDX-License-Identifier: MIT
#include "Scores.h"

#include "../support/NativeDocument.h"
#include "../support/RandomAttribute.h"
#include "../support/RandomScore.h"
#include "../support/SmallScore.h"
#include "../support/TextDifference.h"

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnMusicXmlExporter.h>
#include <ZarnCore/io/ZarnNoteList.h>
#include <ZarnCore/model/ZarnBarAttribute.h>
#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/ZarnMasterBarAttribute.h>
#include <ZarnCore/model/ZarnNoteAttribute.h>
#include <ZarnCore/model/notes/SpanFaults.h>

#include <gtest/gtest.h>

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <random>
#include <set>

namespace {

using namespace zarn;

std::string exported(const ScoreModel &model, io::ExportReport &report)
{
    return io::MusicXmlExporter().toText(model, report);
}

std::string exported(const ScoreModel &model)
{
    io::ExportReport report;
    return exported(model, report);
}

std::shared_ptr<ScoreModel> readAgain(const std::string &text)
{
    io::ImportReport report;
    return scores::import(QByteArray::fromStdString(text), report);
}

std::string notesOf(const ScoreModel &model)
{
    std::string text;
    for (const auto &note : io::listNotes(model))
        text += note.toString() + '\n';
    return text;
}

void expectSame(const std::string &expected, const std::string &found, const char *what)
{
    EXPECT_TRUE(expected == found) << what << ' ' << textDifference(expected, found);
}

std::vector<QString> scoreFiles()
{
    std::vector<QString> files;
    for (const auto &folder : {QStringLiteral(ZARN_SOURCE_DIR "/Samples"),
                               scores::folder() + QStringLiteral("/musicxml")})
        for (const auto &file : QDir(folder).entryInfoList(
                 {QStringLiteral("*.musicxml"), QStringLiteral("*.xml"), QStringLiteral("*.mxl")},
                 QDir::Files, QDir::Name))
            files.push_back(file.filePath());
    return files;
}

/// What MusicXML leaves open is said in one way from here on: how notes are spelled, and which
/// notations an instrument is read from.
std::shared_ptr<ScoreModel> settled(const ScoreModel &model)
{
    return readAgain(exported(model));
}

TEST(MusicXmlRoundTrip, realScoresComeBackWhole)
{
    for (const auto &file : scoreFiles()) {
        SCOPED_TRACE(file.toStdString());
        io::ImportReport report;
        const auto model = scores::importFile(file, report);
        ASSERT_NE(model, nullptr);
        const auto text = exported(*model);
        const auto copy = readAgain(text);
        expectSame(test::writeNative(*model), test::writeNative(*copy), "the tree:");
        expectSame(text, exported(*copy), "the second export:");
        expectSame(notesOf(*model), notesOf(*copy), "the notes:");
    }
}

std::mt19937 engine(11);

/// Sets an attribute of a small score to values, and expects that each comes back or
/// that the report tells of it.
template <class Node, class Set>
void expectKeptOrTold(const std::set<std::string_view> &others, Set set)
{
    const test::RandomAttribute random([](unsigned count) { return unsigned(engine() % count); });
    const auto base = settled(*SmallScore().score.scoreModel());
    for (const auto &row : attributesOf<Node>()) {
        if (others.count(row.name) != 0)
            continue;
        for (int i = 0; i < 12; ++i) {
            const auto value = random.value(row.range);
            SCOPED_TRACE(std::string(row.name) + " = " + row.range.toText(value));
            const auto model = base->clone();
            set(*model, row, value);
            mendBrokenSpans(*model->track(0));
            io::ExportReport report;
            const auto copy = readAgain(exported(*model, report));
            const bool isTold = !report.unheld().empty() || !report.problems().empty();
            const auto before = test::writeNative(*model);
            const auto after = test::writeNative(*copy);
            if (!isTold)
                expectSame(before, after, "lost and not told:");
            else
                EXPECT_FALSE(before == after)
                    << "told and not lost: "
                    << (report.unheld().empty() ? report.problems().front().toString()
                                                : report.unheld().begin()->first);
        }
    }
}

/// What takes or gives time, and what leads to another beat, is tested by itself.
const std::set<std::string_view> joiningAttributes = {
    "Rhythm",        "GraceType",         "SlashedGrace", "PlaceHolder", "WholeBarRest",
    "SlurredToNext", "SlurredToPrevious", "SlurBegins",   "SlurEnds",    "HairpinBegins",
    "TextSpan",      "SlurLine",          "SlurSide",     "DynamicSide", "HairpinSide"};

TEST(MusicXmlRoundTrip, attributesOfBeatsComeBackOrAreTold)
{
    // A chord, and a rest, which stands in the notes and in the tablature.
    for (const unsigned index : {1U, 2U})
        expectKeptOrTold<Beat>(
            joiningAttributes,
            [index](ScoreModel &model, const BeatAttributeRow &row, const AttributeValue &value) {
                auto &beat = *model.track(0)->bar(1)->voice(0)->beat(index);
                setAttribute(beat, row.id, value);
            });
}

TEST(MusicXmlRoundTrip, attributesOfNotesComeBackOrAreTold)
{
    const std::set<std::string_view> others = {"Tied", "TieOrigin", "Hopo"};
    expectKeptOrTold<zarn::Note>(
        others, [](ScoreModel &model, const NoteAttributeRow &row, const AttributeValue &value) {
            auto &beat = *model.track(0)->bar(1)->voice(0)->beat(1);
            setAttribute(beat, *beat.note(0), row.id, value);
        });
}

TEST(MusicXmlRoundTrip, attributesOfBarsComeBackOrAreTold)
{
    // What makes a bar longer or shorter than its beats is tested by itself, and so are marks that
    // bars have in pairs.
    expectKeptOrTold<MasterBar>(
        {"TimeSignature", "OwnLength", "Anacrusis"},
        [](ScoreModel &model, const MasterBarAttributeRow &row, const AttributeValue &value) {
            // A bar that is played once does not count its repeats.
            if (row.id != MasterBarAttribute::RepeatCount || row.range.toText(value) != "1")
                row.set(*model.masterTrack()->masterBars()[1], value);
        });
    expectKeptOrTold<Bar>(
        {"SimileMark"},
        [](ScoreModel &model, const BarAttributeRow &row, const AttributeValue &value) {
            // No command takes a clef away.
            if (row.id != BarAttribute::Clef || value.to<ClefType>() != ClefType::None)
                row.set(*model.track(1)->bar(1), value);
        });
}

/// Makes music of a random score: rhythms and bars whose lengths note values add up to, and notes
/// without marks that contradict each other, such as a dead note that is bent.
void tame(ScoreModel &model)
{
    auto &master = *model.masterTrack();
    for (const auto &bar : master.masterBars())
        bar->setOwnLength(std::nullopt);
    while (master.hasAutomations(Automation::Tempo)) // at no beat in particular
        master.eraseAutomation(master.automations(Automation::Tempo).front());
    const auto tameBeat = [](Beat &beat, bool isTriplet) {
        const auto value =
            std::min(beat.rhythmValue().getNoteValue(), RhythmValue::NoteValue::SixtyFourth);
        RhythmValue rhythm(value);
        if (isTriplet)
            rhythm.setPrimaryTupletRatio({3, 2});
        beat.setRhythmValue(rhythm);
        beat.setSlashed(false); // a head of its own besides
        for (const auto &note : beat.notes()) {
            note->setDetails({});
            note->setDead(false);
            note->setHarmonic({});
        }
    };
    for (const auto &track : model.tracks()) {
        for (const auto &staff : track->staves())
            for (const auto &bar : staff->bars())
                for (const auto &voice : bar->voices())
                    for (unsigned i = 0; voice && i < voice->beatCount(); ++i) {
                        tameBeat(*voice->beat(i), i % 3 == 0);
                        // A staff has one pedal: two voices would press it at once.
                        if (voice->index() != 0)
                            voice->beat(i)->setPedal(PedalChange::None);
                    }
        mendBrokenSpans(*track);
    }
}

TEST(MusicXmlRoundTrip, randomScoresAreWrittenAndSettle)
{
    for (std::uint32_t seed = 0; seed < 40; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const auto model = test::RandomScore(seed).make();
        tame(*model);
        const auto first = settled(*model);
        const auto second = settled(*first);
        expectSame(test::writeNative(*second), test::writeNative(*settled(*second)),
                   "what was written twice comes back whole:");
        EXPECT_EQ(first->trackCount(), model->trackCount());
    }
}

/// All files of a folder against the schema, by the checker of libxml2; what it has to say.
QString schemaFaults(const QString &folder)
{
    QProcess checker;
    auto environment = QProcessEnvironment::systemEnvironment();
    const QString schema = QStringLiteral(ZARN_SOURCE_DIR "/Tests/io/schema");
    environment.insert(QStringLiteral("XML_CATALOG_FILES"),
                       schema + QStringLiteral("/catalog.xml"));
    checker.setProcessEnvironment(environment);
    QStringList arguments = {QStringLiteral("--noout"), QStringLiteral("--nonet"),
                             QStringLiteral("--schema"), schema + QStringLiteral("/musicxml.xsd")};
    for (const auto &file : QDir(folder).entryInfoList(QDir::Files, QDir::Name))
        arguments.append(file.filePath());
    checker.start(QStringLiteral("xmllint"), arguments);
    if (!checker.waitForFinished(120'000))
        return QStringLiteral("xmllint did not end");
    const auto text = QString::fromUtf8(checker.readAllStandardError());
    return checker.exitCode() == 0 ? QString() : text.left(4000);
}

TEST(MusicXmlRoundTrip, exportsFollowTheSchema)
{
    if (QStandardPaths::findExecutable(QStringLiteral("xmllint")).isEmpty())
        GTEST_SKIP() << "xmllint is not here; it is in libxml2-utils";
    const QTemporaryDir folder;
    const auto write = [&folder](const QString &name, const ScoreModel &model) {
        QFile file(folder.filePath(name + QStringLiteral(".musicxml")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray::fromStdString(exported(model)));
    };
    for (const auto &file : scoreFiles()) {
        io::ImportReport report;
        write(QFileInfo(file).fileName(), *scores::importFile(file, report));
    }
    for (std::uint32_t seed = 0; seed < 60; ++seed)
        write(QStringLiteral("random-%1").arg(seed), *test::RandomScore(seed).make());
    EXPECT_EQ(schemaFaults(folder.path()).toStdString(), "");
}

} // namespace
