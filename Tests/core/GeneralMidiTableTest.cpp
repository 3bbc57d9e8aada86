// SPDX-License-Identifier: MIT
#include <ZarnCore/core/GeneralMidiTable.h>

#include "support/CapturedLog.h"

#include <ZarnCore/io/ZarnNativeExporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/ZarnTrack.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThreadPool>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

using zarn::GeneralMidiTable;
using zarn::InstrumentSet;
using zarn::test::CapturedLog;

constexpr auto category = "zarn.core";

/// A folder of templates.
class Templates {
public:
    QString root() const { return _folder.path(); }

    void add(const char *path, InstrumentSet::Type type)
    {
        zarn::ScoreModel model;
        model.addTrack(zarn::ScoreModel::createTrack(type));
        addText(path, zarn::io::NativeExporter().toText(model));
    }
    void addText(const char *path, const std::string &text)
    {
        const QString target = root() + QLatin1Char('/') + QLatin1String(path);
        QDir().mkpath(QFileInfo(target).path());
        QFile file(target);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path;
        file.write(text.c_str());
    }

private:
    QTemporaryDir _folder;
};

class GeneralMidiTableTest : public testing::Test {
protected:
    Templates templates;
    QThreadPool pool;
};

TEST_F(GeneralMidiTableTest, onlyNumberedTemplatesOfTheFamiliesAreListed)
{
    templates.add("004.Guitar/001.024.Acoustic.zarn", InstrumentSet::Type::nylonGuitar);
    templates.add("005.Bass/009.032.Upright.zarn", InstrumentSet::Type::uprightBass);
    templates.add("004.Guitar/deeper/001.001.Deep.zarn", InstrumentSet::Type::nylonGuitar);
    templates.add("018.Other/001.002.Other.zarn", InstrumentSet::Type::nylonGuitar);
    templates.addText("004.Guitar/001.003.Notes.txt", "no template");
    templates.addText("004.Guitar/001.x04.Nonsense.zarn", "no number");
    CapturedLog log;
    GeneralMidiTable table(templates.root());
    table.startBuilding(pool);
    EXPECT_TRUE(table.instrumentPath(24).endsWith(QStringLiteral("001.024.Acoustic.zarn")));
    EXPECT_TRUE(table.instrumentPath(32).endsWith(QStringLiteral("009.032.Upright.zarn")));
    for (const unsigned absent : {0U, 1U, 2U, 3U, 127U, 4000U})
        EXPECT_EQ(table.instrumentPath(absent), table.instrumentPath(24)) << absent;
    EXPECT_TRUE(log.hasWarning(category, {"001.x04.Nonsense.zarn", "no number"}));

    const auto track = table.instrument(32);
    ASSERT_NE(track, nullptr);
    EXPECT_EQ(track->type(), InstrumentSet::Type::uprightBass);
    EXPECT_EQ(track->parentScoreModel(), nullptr);
    EXPECT_EQ(table.instrument(32), track) << "read once";
    EXPECT_EQ(table.percussion(35), nullptr) << "no drums";
    EXPECT_TRUE(table.percussionPath(35).isEmpty());
}

TEST_F(GeneralMidiTableTest, everyPercussionKeyIsAnsweredWithTheDrumKit)
{
    templates.add("017.Drums/001.035.Kit.zarn", InstrumentSet::Type::drumKit);
    templates.add("017.Drums/002.060.Bongos.zarn", InstrumentSet::Type::bongos);
    GeneralMidiTable table(templates.root());
    table.startBuilding(pool);
    EXPECT_TRUE(table.percussionPath(60).endsWith(QStringLiteral("Bongos.zarn")));
    for (const unsigned key : {35U, 60U, 99U}) {
        const auto track = table.percussion(key);
        ASSERT_NE(track, nullptr) << key;
        EXPECT_EQ(track->type(), InstrumentSet::Type::drumKit) << key;
    }
}

TEST_F(GeneralMidiTableTest, damagedTemplatesAreReportedOnceAndLeaveAnEmptyTrack)
{
    templates.addText("001.Piano/001.000.Grand.zarn", "{");
    templates.addText("017.Drums/001.060.Bongos.zarn",
                      zarn::io::NativeExporter().toText(zarn::ScoreModel()));
    templates.add("017.Drums/001.035.Kit.zarn", InstrumentSet::Type::drumKit);
    CapturedLog log;
    GeneralMidiTable table(templates.root());
    table.startBuilding(pool);
    EXPECT_EQ(table.instrument(0), nullptr);
    EXPECT_EQ(table.instrument(5), nullptr);
    EXPECT_EQ(table.percussion(60), nullptr) << "an empty result stays empty";
    const auto lines = log.texts(category);
    ASSERT_EQ(lines.size(), 6U);
    EXPECT_EQ(lines[0], "[GeneralMidiTable] Error while midi table entry 0");
    EXPECT_NE(lines[1].find("001.000.Grand.zarn"), std::string::npos);
    EXPECT_EQ(lines[2], "WARNING: findGMInstrument nullptr");
    EXPECT_EQ(lines[3], lines[2]);
    EXPECT_EQ(lines[4], "[GeneralMidiTable] Error while midi table entry 60");
    EXPECT_NE(lines[5].find("holds 0 tracks"), std::string::npos);
}

TEST_F(GeneralMidiTableTest, emptyTableAnswersNothingAndWarns)
{
    CapturedLog log;
    GeneralMidiTable table(templates.root() + QStringLiteral("/nowhere"));
    EXPECT_EQ(table.instrument(0), nullptr) << "before it is built";
    table.startBuilding(pool);
    EXPECT_EQ(table.instrument(0), nullptr);
    EXPECT_TRUE(table.instrumentPath(0).isEmpty());
    EXPECT_EQ(log.texts(category),
              std::vector<std::string>(2, "WARNING: findGMInstrument nullptr"));
}

TEST_F(GeneralMidiTableTest, manyThreadsGetTheSameTrack)
{
    templates.add("004.Guitar/001.024.Acoustic.zarn", InstrumentSet::Type::nylonGuitar);
    GeneralMidiTable table(templates.root());
    table.startBuilding(pool);
    std::vector<std::shared_ptr<zarn::Track>> found(4);
    std::vector<std::thread> threads;
    for (auto &track : found)
        threads.emplace_back([&table, &track] { track = table.instrument(24); });
    for (std::thread &thread : threads)
        thread.join();
    for (const auto &track : found)
        EXPECT_EQ(track, found.front());
    EXPECT_NE(found.front(), nullptr);
}

TEST_F(GeneralMidiTableTest, tableThatGoesAwayWaitsForItsTask)
{
    for (int i = 0; i < 50; ++i)
        templates.addText(("001.Piano/001." + std::to_string(100 + i) + ".x.zarn").c_str(), "{}");
    for (int i = 0; i < 20; ++i) {
        GeneralMidiTable table(templates.root());
        table.startBuilding(pool);
    }
    pool.waitForDone();
}

} // namespace
