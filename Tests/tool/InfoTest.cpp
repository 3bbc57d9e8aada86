// SPDX-License-Identifier: MIT
#include "ToolRun.h"

#include "io/Scores.h"

#include "common/Documents.h"
#include "common/Terminal.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

using namespace zarn::test;

std::size_t noteCount(const zarn::ScoreModel &model)
{
    std::size_t count = 0;
    for (const auto &track : model.tracks())
        for (const auto &staff : track->staves())
            for (const auto &bar : staff->bars())
                for (const auto &voice : bar->voices())
                    for (unsigned i = 0; voice && i < voice->beatCount(); ++i)
                        count += voice->beats()[i]->notes().size();
    return count;
}

TEST(Info, tellsWhatAPlayerAsksFirst)
{
    const ToolRun run = runTool({QStringLiteral("info"), romance(), saints()});
    EXPECT_EQ(run.code, 0);
    for (const char *const part :
         {"Title: Romance", "tuning E2 A2 D3 G3 B3 E4", "Time: 3/4 from bar 1", "Key: E minor",
          "quarter = 88", "Bars: 16", "156 notes", "Played: 1-16 1-16", "Tracks: 4",
          "written 2 semitones higher", "Drum Kit", "A at bar 2, B at bar 10",
          "Played: 1-17 2-15 18-19"})
        EXPECT_TRUE(contains(run.out, part)) << part << "\n" << run.out;
}

TEST(Info, whoArrangedIsToldInTheWordOfScores)
{
    const ToolRun run =
        runTool({QStringLiteral("edit"), romance()}, "property Tabber Clara\ninfo\nundo all\n");
    EXPECT_TRUE(contains(run.out, "\nArranger: Clara\n")) << run.out << run.err;
}

TEST(Info, temposFreeTimeAndBarsThatAreTooLongAreToldInLinesThatFit)
{
    std::string lines = "free-time 5-6\nfree-time 9\nadd-beat 12:1 half\ntempo 3 60 half Lento\n";
    for (int bar = 4; bar <= 16; ++bar)
        lines += "tempo " + std::to_string(bar) + ' ' + std::to_string(60 + bar) + '\n';
    const ToolRun run = runTool({QStringLiteral("edit"), romance()}, lines + "info\nundo all\n");
    EXPECT_EQ(run.code, 0) << run.err;
    for (const char *const part :
         {"Tempo: quarter = 88 (Andante) from bar 1, half = 60 (Lento) from bar 3", "... 15 in all",
          "Free time: bars 5-6, bar 9\n",
          "Too long: bar 12 of track 1, voice 1 (5 quarters instead of 3 quarters)"})
        EXPECT_TRUE(contains(run.out, part)) << part << '\n' << run.out;
    const QString out = QString::fromStdString(run.out);
    for (const QString &line :
         out.mid(out.indexOf(QStringLiteral("Tempo"))).split(QLatin1Char('\n')))
        EXPECT_LE(line.size(), 100) << line.toStdString();
}

TEST(Info, goesOnAfterADocumentThatCannotBeRead)
{
    const ToolRun run = runTool({QStringLiteral("info"), QStringLiteral("--json"),
                                 QStringLiteral("missing.zarn"), romance()});
    EXPECT_EQ(run.code, 1);
    EXPECT_TRUE(contains(run.err, "missing.zarn"));
    const QJsonObject all = QJsonDocument::fromJson(QByteArray::fromStdString(run.out)).object();
    EXPECT_EQ(all.keys(), QStringList(romance()));
}

TEST(Info, countsForProgramsStandUnderTheirNames)
{
    const ToolRun run = runTool({QStringLiteral("info"), QStringLiteral("--json"), saints()});
    const QJsonObject counts =
        QJsonDocument::fromJson(QByteArray::fromStdString(run.out)).object()[saints()].toObject();
    for (const char *const key :
         {"parts", "staves", "measures", "notes", "midi_sum", "midi_low", "midi_high", "keys",
          "times", "clefs", "tuplets", "per_part", "unheld", "problems"})
        EXPECT_TRUE(counts.contains(QLatin1String(key))) << key;
    EXPECT_EQ(counts[QStringLiteral("parts")].toInt(), 4);
    EXPECT_EQ(counts[QStringLiteral("measures")].toInt(), 19);
    EXPECT_EQ(counts[QStringLiteral("notes")].toObject()[QStringLiteral("total")].toInt(), 530);
    EXPECT_EQ(counts[QStringLiteral("per_part")].toArray().size(), 4);
}

TEST(Info, countsAgreeWithTheTruthOfTheSharedScores)
{
    SKIP_WITHOUT_SCORES();
    const QJsonObject truth =
        QJsonDocument::fromJson(scores::bytesOf(scores::folder() + QStringLiteral("/truth.json")))
            .object()[QStringLiteral("musicxml")]
            .toObject();
    for (const QString &name : truth.keys()) {
        const QString path = scores::folder() + QStringLiteral("/musicxml/") + name;
        const ToolRun run = runTool({QStringLiteral("info"), QStringLiteral("--json"), path});
        const QJsonObject counts =
            QJsonDocument::fromJson(QByteArray::fromStdString(run.out)).object()[path].toObject();
        for (const char *const key : {"parts", "staves", "measures", "midi_sum", "midi_low",
                                      "midi_high", "keys", "times", "clefs", "tuplets"})
            EXPECT_EQ(counts[QLatin1String(key)], truth[name].toObject()[QLatin1String(key)])
                << name.toStdString() << ' ' << key;
    }
}

TEST(Notes, everyNoteOfTheTreeHasOneLineWithAllColumns)
{
    const zarn::tool::Terminal terminal(80, true, false);
    for (const QString &path : {romance(), saints()}) {
        const auto document = zarn::tool::openDocument(path.toStdString(), terminal);
        const ToolRun run = runTool({QStringLiteral("notes"), path});
        const QStringList lines = QString::fromStdString(run.out).split(QLatin1Char('\n'));
        ASSERT_EQ(static_cast<std::size_t>(lines.size()), noteCount(*document.model) + 2);
        EXPECT_EQ(lines.last(), QString());
        for (int i = 0; i + 1 < lines.size(); ++i)
            EXPECT_EQ(lines.at(i).count(QLatin1Char('\t')), 13) << lines.at(i).toStdString();
    }
    const ToolRun run = runTool({QStringLiteral("notes"), romance()});
    EXPECT_TRUE(contains(run.out, "\n0\t0\t0\t0\t1/3\t1/3\t59\t59\tB3\t4\t0\t\t-\t-\n"))
        << run.out.substr(0, 400);
}

} // namespace
