// SPDX-License-Identifier: MIT
#include "ToolRun.h"

#include <ZarnAudio/ZarnAudioWriter.h>
#include <filesystem/DiskFileSystem.h>

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <vector>

namespace {

using namespace zarn::test;

bool contains(const std::string &text, const char *part)
{
    return text.find(part) != std::string::npos;
}

/// A bank of two samples in a folder of its own.
class Banks : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir(_folder.path()).mkpath(QStringLiteral("bank/in")));
        sound("bank/in/low.wav", 44100);
        sound("bank/high.flac", 22050);
        describe(R"({"sample": "in/low.wav", "keys": [40, 59], "rootKey": 45},
                    {"sample": "high.flac", "keys": [60, 80], "gain": -3,
                     "loop": {"start": 10, "end": 22050}})");
    }

    std::string path(const char *name) const
    {
        return _folder.filePath(QLatin1String(name)).toStdString();
    }

    void sound(const char *name, int frames) const
    {
        using namespace Halvec::audio;
        filesystem::DiskFileSystem files;
        AudioFormat format;
        format.channels = 1;
        audioFileOfName(name, format.file);
        AudioWriter writer(files.open(path(name), filesystem::OpenMode::Write), format);
        std::vector<float> values;
        for (int i = 0; i < frames; ++i)
            values.push_back(0.5F * std::sin(static_cast<float>(i) * 0.05F));
        writer.write(values.data(), frames);
        ASSERT_TRUE(writer.finish()) << writer.errorText();
    }

    void describe(const char *regions) const
    {
        QFile file(QString::fromStdString(path("bank/bank.json")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(R"({"id": "My-Guitar", "name": "Mine", "instrument": "steelGuitar",
                       "regions": [)");
        file.write(regions);
        file.write("]}");
    }

    ToolRun bank(std::initializer_list<const char *> words) const
    {
        QStringList arguments{QStringLiteral("bank")};
        for (const char *const word : words)
            arguments.append(*word == '/' || *word == '-' || arguments.size() == 1
                                 ? QLatin1String(word)
                                 : QString::fromStdString(path(word)));
        return runTool(arguments);
    }

    QTemporaryDir _folder;
};

TEST_F(Banks, arePackedCheckedListedAndUnpacked)
{
    EXPECT_EQ(bank({"pack", "bank", "x.zarn7bank"}).err, "");
    for (const char *const kind : {"bank", "bank/bank.json", "x.zarn7bank"}) {
        const ToolRun run = bank({"check", kind});
        EXPECT_EQ(run.code, 0) << run.err;
        for (const char *const part : {"My-Guitar: Mine, 2 samples, 2 regions", "in/low.wav",
                                       "44100    1.000     -6.0", "All well."})
            EXPECT_TRUE(contains(run.out, part)) << run.out;
    }
    const ToolRun json = bank({"check", "x.zarn7bank", "--json"});
    const auto object = QJsonDocument::fromJson(QByteArray::fromStdString(json.out)).object();
    EXPECT_TRUE(object.value(QStringLiteral("packed")).toBool());
    EXPECT_EQ(object.value(QStringLiteral("regions")).toInt(), 2);

    EXPECT_EQ(bank({"unpack", "x.zarn7bank", "new"}).code, 0);
    EXPECT_EQ(bank({"pack", "new", "y.zarn7bank"}).code, 0);
    const auto bytes = [this](const char *name) {
        QFile file(QString::fromStdString(path(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    EXPECT_FALSE(bytes("x.zarn7bank").isEmpty());
    EXPECT_EQ(bytes("x.zarn7bank"), bytes("y.zarn7bank"));

    const QString installed = dataHome() + QStringLiteral("/zarn/soundbanks");
    ASSERT_TRUE(QDir().mkpath(installed));
    ASSERT_TRUE(QFile::copy(QString::fromStdString(path("x.zarn7bank")),
                            installed + QStringLiteral("/mine.zarn7bank")));
    const ToolRun listed =
        runTool({QStringLiteral("catalog"), QStringLiteral("banks"), QStringLiteral("my-guitar")});
    EXPECT_TRUE(QDir(installed).removeRecursively());
    for (const char *const part : {"E2 - G#5  yes", "in/low.wav  E2 - B3", "10 - 22050", "-3"})
        EXPECT_TRUE(contains(listed.out, part)) << listed.out << listed.err;
}

TEST_F(Banks, faultsAreToldOneByOne)
{
    describe(R"({"sample": "in/low.wav", "keys": [40, 50]},
                {"sample": "high.flac", "keys": [60, 80], "velocities": [1, 100],
                 "loop": {"start": 10, "end": 22051}}, {"sample": "gone.wav"})");
    QFile damaged(QString::fromStdString(path("bank/in/low.wav")));
    ASSERT_TRUE(damaged.resize(20'000));
    const ToolRun run = bank({"check", "bank"});
    EXPECT_EQ(run.code, 1);
    for (const char *const part : {"in/low.wav: is cut off at frame 9978", "gone.wav: No such file",
                                   "regions[1]: the loop ends at frame 22051, high.flac has 22050"})
        EXPECT_TRUE(contains(run.err, part)) << run.err;
    EXPECT_TRUE(contains(run.err, "zarn: ")) << run.err;
    const ToolRun pack = bank({"pack", "bank", "x.zarn7bank"});
    EXPECT_EQ(pack.code, 1);
    EXPECT_TRUE(contains(pack.err, "gone.wav: No such file")) << pack.err;
    EXPECT_FALSE(QFile::exists(QString::fromStdString(path("x.zarn7bank"))));

    describe(R"({"sample": "high.flac", "keys": [60, 61], "velocities": [1, 100]},
                {"sample": "high.flac", "keys": 64})");
    const ToolRun gaps = bank({"check", "bank"});
    EXPECT_EQ(gaps.code, 0) << gaps.err;
    for (const char *const part :
         {"key 60 has no region for velocity 101", "key 63 has no region", "It can be played."})
        EXPECT_TRUE(contains(gaps.out, part)) << gaps.out;
}

TEST_F(Banks, wrongUsesAreAnswered)
{
    EXPECT_TRUE(contains(bank({"chek", "bank"}).err, "did you mean \"check\"?"));
    EXPECT_EQ(bank({"pack", "bank"}).code, 2);
    EXPECT_TRUE(contains(bank({"pack", "bank"}).err, "takes FOLDER FILE"));
    EXPECT_TRUE(contains(bank({"check", "none"}).err, "No such file"));
}

TEST(SoundFonts, areNamedByTheEnvironmentOrMissedInASentence)
{
    qputenv("ZARN_SOUNDFONT", "/etc/hostname");
    const QStringList fonts{QStringLiteral("catalog"), QStringLiteral("fonts")};
    EXPECT_TRUE(contains(runTool(fonts).err, "is no sound font"));
    QTemporaryDir folder;
    const QByteArray file = folder.filePath(QStringLiteral("tiny.sf2")).toUtf8();
    QFile font(QString::fromUtf8(file));
    ASSERT_TRUE(font.open(QIODevice::WriteOnly));
    font.write(QByteArray("RIFF\4\0\0\0sfbk", 12));
    font.close();
    qputenv("ZARN_SOUNDFONT", file);
    const ToolRun taken = runTool(fonts);
    EXPECT_TRUE(contains(taken.out, "tiny")) << taken.err;
    EXPECT_TRUE(contains(taken.out, "yes"));
    qunsetenv("ZARN_SOUNDFONT");
    qputenv("XDG_DATA_DIRS", folder.path().toUtf8());
    EXPECT_TRUE(contains(runTool(fonts).err, "timgm6mb-soundfont"));
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("sounds/sf2")));
    ASSERT_TRUE(
        QFile::copy(QString::fromUtf8(file), folder.filePath(QStringLiteral("sounds/sf2/zz.sf2"))));
    EXPECT_TRUE(contains(runTool(fonts).out, "zz.sf2"));
    qunsetenv("XDG_DATA_DIRS");
}

} // namespace
