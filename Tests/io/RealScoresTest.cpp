// SPDX-License-Identifier: MIT
// Real scores against counts and notes that another program took from the same files.
#include "Scores.h"

#include <ZarnCore/io/ZarnNoteList.h>
#include <ZarnCore/io/ZarnScoreStatistics.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <tuple>

using utils::rational;
using zarn::io::ImportReport;
using zarn::io::ScoreStatistics;

namespace {

QJsonObject truth()
{
    return QJsonDocument::fromJson(
               scores::bytesOf(scores::folder() + QStringLiteral("/truth.json")))
        .object()[QStringLiteral("musicxml")]
        .toObject();
}

QString pathOf(const QString &name)
{
    return scores::folder() + QStringLiteral("/musicxml/") + name;
}

std::string printed(const QJsonValue &value)
{
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
}

/// Part, bar and pitch of a note, and where it begins.
using Place = std::tuple<unsigned, unsigned, int, rational>;

/// The notes that an import has to give, and those of tablatures that repeat a staff: each of these
/// has to be one of the others and is not expected a second time.
struct ExpectedNotes {
    std::vector<Place> notes;
    std::vector<Place> twins;
};

/// What the independent program lists, by file: one run for all, because it is slow to start.
std::map<QString, QStringList> expectedLists(const QStringList &names)
{
    const QString script = QStringLiteral("import sys, truth_musicxml as truth\n"
                                          "for name in sys.argv[1:]:\n"
                                          "    print('@' + name)\n"
                                          "    truth.main(['--notes', 'musicxml/' + name])\n");
    QProcess python;
    python.setWorkingDirectory(scores::folder());
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PYTHONPATH"), scores::folder());
    environment.insert(QStringLiteral("PYTHONDONTWRITEBYTECODE"), QStringLiteral("1"));
    python.setProcessEnvironment(environment);
    python.start(QStringLiteral("python3"), QStringList{QStringLiteral("-c"), script} + names);
    EXPECT_TRUE(python.waitForFinished(600'000));
    EXPECT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString();
    std::map<QString, QStringList> lists;
    QString name;
    for (const auto &line :
         QString::fromUtf8(python.readAllStandardOutput()).split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1Char('@')))
            name = line.mid(1);
        else
            lists[name].append(line);
    }
    return lists;
}

ExpectedNotes expectedNotes(const QStringList &lines, const std::vector<zarn::io::PartTally> &parts)
{
    std::map<QString, unsigned> numbers;
    for (unsigned i = 0; i < parts.size(); ++i)
        numbers[QString::fromStdString(parts[i].id)] = i;
    ExpectedNotes expected;
    for (int i = 1; i < lines.size(); ++i) {
        const auto columns = lines[i].split(QLatin1Char('\t'));
        if (columns.size() < 9 || columns[7] == QStringLiteral("-"))
            continue;
        const auto part = numbers[columns[0]];
        const auto &merged = parts[part].mergedStaves;
        const bool isTwin =
            std::find(merged.begin(), merged.end(), columns[2].toUInt() - 1) != merged.end();
        (isTwin ? expected.twins : expected.notes)
            .emplace_back(part, columns[1].toUInt(), columns[7].toInt(),
                          *rational::fromString(columns[4].toStdString()));
    }
    std::sort(expected.notes.begin(), expected.notes.end());
    std::sort(expected.twins.begin(), expected.twins.end());
    return expected;
}

std::vector<Place> importedNotes(const zarn::ScoreModel &model)
{
    std::vector<Place> notes;
    for (const auto &note : zarn::io::listNotes(model))
        if (note.midi)
            notes.emplace_back(note.track, note.bar, *note.midi, note.onset);
    std::sort(notes.begin(), notes.end());
    return notes;
}

} // namespace

TEST(RealScores, countsAgreeWithTheTruth)
{
    SKIP_WITHOUT_SCORES();
    const auto all = truth();
    ASSERT_GE(all.size(), 40);
    for (auto row = all.begin(); row != all.end(); ++row) {
        SCOPED_TRACE(row.key().toStdString());
        ImportReport report;
        const auto model = scores::importFile(pathOf(row.key()), report);
        ASSERT_TRUE(model);
        const auto wanted = row.value().toObject();
        const auto counted = ScoreStatistics(*model, report.tally()).toJson();
        for (const auto &name : counted.keys()) {
            if (name != QStringLiteral("notes")) {
                EXPECT_EQ(printed(counted[name]), printed(wanted[name])) << name.toStdString();
            }
        }
        const auto notes = counted[QStringLiteral("notes")].toObject();
        const auto wantedNotes = wanted[QStringLiteral("notes")].toObject();
        for (const auto &name : wantedNotes.keys())
            EXPECT_EQ(printed(notes[name]), printed(wantedNotes[name])) << name.toStdString();
    }
}

TEST(RealScores, countsOfTheTreeAloneAgreeWhereItCanTell)
{
    SKIP_WITHOUT_SCORES();
    const auto all = truth();
    for (auto row = all.begin(); row != all.end(); ++row) {
        SCOPED_TRACE(row.key().toStdString());
        ImportReport report;
        const auto model = scores::importFile(pathOf(row.key()), report);
        ASSERT_TRUE(model);
        const auto notes = ScoreStatistics(*model).toJson()[QStringLiteral("notes")].toObject();
        const auto wanted = row.value().toObject()[QStringLiteral("notes")].toObject();
        // Notes that a tablature repeats are counted twice in the document and stand once here.
        zarn::io::NoteTally merged;
        for (const auto &part : report.tally().parts) {
            merged.total += part.merged.total;
            merged.pitched += part.merged.pitched;
            merged.rests += part.merged.rests;
            // Rests that are not printed are none in the tree.
            merged.total += part.notes.hiddenRests;
            merged.rests += part.notes.hiddenRests;
        }
        const auto wantedOf = [&](const char *name, std::uint32_t elsewhere) {
            return wanted[QLatin1String(name)].toInt() - static_cast<int>(elsewhere);
        };
        EXPECT_EQ(notes[QLatin1String("total")].toInt(), wantedOf("total", merged.total));
        EXPECT_EQ(notes[QLatin1String("pitched")].toInt(), wantedOf("pitched", merged.pitched));
        EXPECT_EQ(notes[QLatin1String("rests")].toInt(), wantedOf("rests", merged.rests));
        for (const char *name : {"unpitched", "grace", "grace_slashed", "with_fret"})
            EXPECT_EQ(notes[QLatin1String(name)].toInt(), wantedOf(name, 0)) << name;
    }
}

TEST(RealScores, notesAgreeOneByOneInPartBarOnsetAndPitch)
{
    SKIP_WITHOUT_SCORES();
    if (QStandardPaths::findExecutable(QStringLiteral("python3")).isEmpty())
        GTEST_SKIP() << "python3, which lists the notes independently, is not installed";
    const auto all = truth();
    auto lists = expectedLists(all.keys());
    for (auto row = all.begin(); row != all.end(); ++row) {
        SCOPED_TRACE(row.key().toStdString());
        ImportReport report;
        const auto model = scores::importFile(pathOf(row.key()), report);
        ASSERT_TRUE(model);
        const auto [wanted, twins] = expectedNotes(lists[row.key()], report.tally().parts);
        EXPECT_TRUE(std::includes(wanted.begin(), wanted.end(), twins.begin(), twins.end()))
            << "a tablature was taken for a twin that is none";
        const auto notes = importedNotes(*model);
        ASSERT_EQ(notes.size(), wanted.size());
        // Written onsets add up rounded durations; those of the tree are exact.
        const bool rounded =
            row.value().toObject()[QStringLiteral("durations_off_nominal")].toInt() > 0;
        const rational tolerance = rounded ? rational(1, 24) : rational(0);
        int wrong = 0;
        for (std::size_t i = 0; i < notes.size() && wrong < 5; ++i) {
            const auto &[part, bar, midi, onset] = notes[i];
            const auto &[wantedPart, wantedBar, wantedMidi, wantedOnset] = wanted[i];
            const bool same = part == wantedPart && bar == wantedBar && midi == wantedMidi
                && !(tolerance < utils::abs(onset - wantedOnset));
            wrong += !same;
            EXPECT_TRUE(same) << "part " << part << " bar " << bar << " midi " << midi << " at "
                              << onset.toString() << ", not part " << wantedPart << " bar "
                              << wantedBar << " midi " << wantedMidi << " at "
                              << wantedOnset.toString();
        }
    }
}
