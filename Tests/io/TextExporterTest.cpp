// SPDX-License-Identifier: MIT
#include "Scores.h"

#include <support/RandomScore.h>

#include <ZarnCore/ZarnCoreUtils.h>
#include <ZarnCore/io/ZarnTextExporter.h>
#include <ZarnCore/score/ZarnScore.h>

#include <QStringList>

#include <gtest/gtest.h>

namespace {

using namespace zarn;
using io::TextExporter;

QStringList linesOf(const std::string &text)
{
    return QString::fromStdString(text).split(QLatin1Char('\n'));
}

/// The rows of strings, as a posted text has them.
bool isStringRow(const QString &line)
{
    return line.size() > 2 && line.contains(QLatin1String("--")) && line.contains(QLatin1Char('|'))
        && line.at(0).isLetter();
}

TEST(TextExporter, writesTablatureAsPlayersPostIt)
{
    const auto score = ZarnCoreUtils::make_from_string(
        "guitar(D2 A2 D3 G3 B3 E4) capo=2 key=Em tempo=96: |: \"Em\"1:7h 2:8h :|x3 "
        "3/4 [6:0 5:0 4:0]q 3:xq 1:12q");
    ScoreModel &model = *score->scoreModel();
    model.setScoreProperty(ScoreProperty::Title, "Riff");
    model.setScoreProperty(ScoreProperty::Artist, "Nobody");
    const Track &track = *model.track(0);
    track.bar(0)->voice(0)->beat(0)->note(0)->setBend(Bend::of(BendType::BendNRelease));
    const auto hammered = track.bar(0)->voice(0)->beat(1)->note(0);
    hammered->setVibrato(Vibrato::Slight);
    Beat &first = *track.bar(0)->voice(0)->beat(0);
    first.setSlurredToNext(true);

    const std::string hidden = TextExporter().toText(model);
    EXPECT_EQ(hidden.rfind("Riff\nby Nobody\n", 0), 0U) << hidden;
    EXPECT_NE(hidden.find("Tuning: D A D G B E\nCapo: fret 2\n"), std::string::npos) << hidden;
    EXPECT_NE(hidden.find("E||--7b9r7--------||"), std::string::npos) << hidden;
    EXPECT_NE(hidden.find("B||--------8~-----||"), std::string::npos) << hidden;
    EXPECT_NE(hidden.find("x3"), std::string::npos) << hidden;
    EXPECT_NE(hidden.find("7b9 bent until it sounds like fret 9"), std::string::npos) << hidden;
    EXPECT_EQ(hidden.find("h half"), std::string::npos) << "rhythm was not asked for\n" << hidden;

    const std::string shown = TextExporter(TextExporter::TabRhythm::Shown).toText(model);
    EXPECT_NE(shown.find("h half"), std::string::npos) << shown;
    EXPECT_NE(shown.find("3/4 q   q   q"), std::string::npos) << shown;

    model.setScoreProperty(ScoreProperty::Tabber, "Anna\nChecked by Eva");
    const std::string named = TextExporter().toText(model);
    EXPECT_NE(named.find("\nTabbed by Anna\nChecked by Eva\n"), std::string::npos) << named;
    model.setScoreProperty(ScoreProperty::Tabber, "Transcribed from a print\nEve from Rome");
    const std::string sourced = TextExporter().toText(model);
    EXPECT_NE(sourced.find("\nTranscribed from a print\nTabbed by Eve from Rome\n"),
              std::string::npos)
        << sourced;
}

TEST(TextExporter, tellsGraceNotesWhereTheRhythmIsHidden)
{
    const auto score = ZarnCoreUtils::make_from_string("guitar: 1:5e 1:7q");
    score->scoreModel()->track(0)->bar(0)->voice(0)->beat(0)->setGraceType(GraceType::BeforeBeat);
    const std::string text = TextExporter().toText(*score->scoreModel());
    EXPECT_NE(text.find("g grace note"), std::string::npos) << text;
    EXPECT_NE(text.find("e|-5-7-"), std::string::npos) << text;
}

/// Strings of one system end at the same column, and no line is too long.
TEST(TextExporter, keepsTheStringsOfASystemTogether)
{
    for (std::uint32_t seed = 1; seed <= 20; ++seed)
        for (const int width : {40, 80}) {
            const auto model = test::RandomScore(seed).make(2, 8);
            const TextExporter exporter(TextExporter::TabRhythm::Hidden, width);
            const std::string text = exporter.toText(*model);
            ASSERT_EQ(text, exporter.toText(*model->clone())) << "seed " << seed;
            int before = -1;
            for (const QString &line : linesOf(text)) {
                EXPECT_LE(line.size(), width) << line.toStdString();
                const int length = isStringRow(line) ? line.size() : -1;
                if (before >= 0 && length >= 0) {
                    EXPECT_EQ(before, length) << "seed " << seed << '\n' << text;
                }
                before = length;
            }
        }
}

TEST(TextExporter, writesTracksWithoutFretsAsTheirPages)
{
    const auto score = ZarnCoreUtils::make_from_string("drums: kickq snare hat hat; piano: c4w");
    const std::string text = TextExporter().toText(*score->scoreModel());
    EXPECT_NE(text.find("Kick"), std::string::npos) << text;
    EXPECT_NE(text.find("C4"), std::string::npos) << text;
    filesystem::RAMFileSystem files;
    const auto handle = files.open("a.tab", filesystem::OpenMode::Write);
    TextExporter().write(*score->scoreModel(), *handle);
    const auto saved = files.open("a.tab", filesystem::OpenMode::Read);
    EXPECT_EQ(saved->size(), static_cast<std::int64_t>(text.size()));
}

} // namespace
