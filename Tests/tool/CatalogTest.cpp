// SPDX-License-Identifier: MIT
#include "ToolRun.h"

#include "common/Choices.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

using namespace zarn::test;

ToolRun catalog(std::initializer_list<const char *> arguments)
{
    QStringList words(QStringLiteral("catalog"));
    for (const char *const argument : arguments)
        words.append(QString::fromUtf8(argument));
    return runTool(words);
}

QJsonArray jsonOf(const ToolRun &run)
{
    EXPECT_EQ(run.code, 0) << run.err;
    return QJsonDocument::fromJson(QByteArray::fromStdString(run.out)).array();
}

int lineCount(const std::string &text)
{
    return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

TEST(Catalog, programsAreListedAsAMusicianLooksForThem)
{
    expectGolden("catalog-gm.txt",
                 catalog({"gm", "--family", "strings"}).out + catalog({"gm", "sax"}).out
                     + catalog({"gm", "bongo", "-f", "drums"}).out);
    const QJsonArray all = jsonOf(catalog({"gm", "--json"}));
    EXPECT_EQ(all.size(), 128 + 47);
    EXPECT_EQ(all.at(0).toObject().value(QStringLiteral("program")).toInt(), 1);
    EXPECT_EQ(all.at(127).toObject().value(QStringLiteral("program")).toInt(), 128);
    EXPECT_EQ(all.at(128).toObject().value(QStringLiteral("key")).toInt(), 35);
}

TEST(Catalog, tuningsAreFoundByInstrumentStringsAndName)
{
    const ToolRun run =
        catalog({"tunings", "--instrument", "guitar", "--strings", "6", "--name", "drop d"});
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_TRUE(contains(run.out, "D2 A2 D3 G3 B3 E4")) << run.out;
    const QJsonArray sevens = jsonOf(catalog({"tunings", "-i", "guitar", "-s", "7", "--json"}));
    EXPECT_GT(sevens.size(), 1);
    for (const QJsonValue &tuning : sevens) {
        EXPECT_EQ(tuning[QStringLiteral("instrument")], QStringLiteral("Guitar"));
        EXPECT_EQ(tuning[QStringLiteral("midi")].toArray().size(), 7);
        EXPECT_EQ(tuning[QStringLiteral("notes")].toArray().size(), 7);
    }
    EXPECT_GE(jsonOf(catalog({"tunings", "--json"})).size(), 150);
    EXPECT_TRUE(contains(catalog({"tunings", "-i", "banjo"}).out, "short drone string"));
}

TEST(Catalog, theUsersOwnTuningsAreThereToo)
{
    EXPECT_TRUE(contains(catalog({"tunings", "yours"}).err, "no such tunings"));
    const QString folder = dataHome() + QStringLiteral("/zarn");
    ASSERT_TRUE(QDir().mkpath(folder));
    writeFile(folder + QStringLiteral("/userTuningLibrary.xml"),
              "<UserTunings><Tuning Instrument=\"1\" Name=\"Mine\">"
              "<MidiNumber Index=\"0\" Number=\"40\"/><MidiNumber Index=\"1\" Number=\"47\"/>"
              "</Tuning></UserTunings>");
    const ToolRun run = catalog({"tunings", "yours"});
    EXPECT_TRUE(contains(run.out, "Mine")) << run.err;
    EXPECT_TRUE(contains(run.out, "E2 B2")) << run.out;
    EXPECT_TRUE(QDir(folder).removeRecursively());
}

TEST(Catalog, everyCategoryIsThereAndTheDrumKitTellsItsArticulations)
{
    const QJsonArray all = jsonOf(catalog({"instruments", "--json"}));
    EXPECT_EQ(all.size(), static_cast<int>(zarn::tool::instrumentChoices().size()));
    const ToolRun kit = catalog({"instruments", "drumkit"});
    EXPECT_EQ(kit.code, 0) << kit.err;
    const auto articulations = jsonOf(catalog({"instruments", "drumKit", "--json"}))
                                   .at(0)
                                   .toObject()
                                   .value(QStringLiteral("articulations"))
                                   .toArray();
    EXPECT_GE(articulations.size(), 40);
    EXPECT_EQ(lineCount(kit.out), 2 + 2 + articulations.size());
    for (const char *const part : {"Charley", "noteheadXBlack", "Snare"})
        EXPECT_TRUE(contains(kit.out, part)) << part;
    EXPECT_TRUE(contains(catalog({"instruments", "-f", "brass"}).out, "frenchHorn"));
}

TEST(Catalog, patchesTellTheirBanks)
{
    const QJsonArray all = jsonOf(catalog({"patches", "--json"}));
    EXPECT_FALSE(all.isEmpty());
    const ToolRun run = catalog({"patches", "drumkit-master"});
    EXPECT_EQ(run.code, 0) << run.err;
    for (const char *const part : {"Drumkit-Master", "Charley", "Master-Snare", "no"})
        EXPECT_TRUE(contains(run.out, part)) << run.out;
    EXPECT_TRUE(contains(catalog({"patches", "-i", "electricGuitar"}).out, "Strat-Guitar"));
}

TEST(Catalog, whatIsNotThereIsAnsweredWithWhatIsNear)
{
    struct Wrong {
        std::initializer_list<const char *> arguments;
        int code;
        const char *reason;
    };
    const Wrong all[] = {
        {{}, 2, "WHAT is missing"},
        {{"tuning"}, 2, "did you mean \"tunings\"?"},
        {{"sounds"}, 2, "there are tunings, instruments, gm, patches, banks, fonts"},
        {{"tunings", "--instrument", "giutar"}, 2, "did you mean \"Guitar\"?"},
        {{"tunings", "--strings", "77"}, 2, "there are"},
        {{"instruments", "--strings", "6"}, 2, "says nothing about instruments"},
        {{"gm", "--family", "brasss"}, 2, "did you mean \"Brass\"?"},
        {{"gm", "Harmonicaa"}, 1, "did you mean \"Harmonica\"?"},
        {{"instruments", "steelgitar"}, 1, "did you mean \"steelGuitar\"?"},
    };
    for (const Wrong &wrong : all) {
        const ToolRun run = catalog(wrong.arguments);
        EXPECT_EQ(run.code, wrong.code) << wrong.reason;
        EXPECT_TRUE(contains(run.err, wrong.reason)) << run.err;
        EXPECT_TRUE(run.out.empty()) << run.out;
    }
}

} // namespace
