// SPDX-License-Identifier: MIT
#include "ToolRun.h"

#include <ZarnAudio/ZarnAudioDecoder.h>
#include <ZarnAudio/ZarnSoundFonts.h>
#include <filesystem/DiskFileSystem.h>
#include <streams/FileStream.h>

#include <QDir>

#include <cmath>
#include <csignal>
#include <vector>

namespace {

using namespace zarn::test;

class Rendering : public ::testing::Test {
protected:
    ToolRun render(const QStringList &options, const char *name) const
    {
        return runTool(QStringList{QStringLiteral("render"), romance(), path(name)} + options);
    }

    QString path(const char *name) const { return _folder.filePath(QLatin1String(name)); }

    std::unique_ptr<Halvec::audio::AudioDecoder> opened(const char *name) const
    {
        filesystem::DiskFileSystem files;
        auto handle = files.open(path(name).toStdString(), filesystem::OpenMode::Read);
        return handle == nullptr
            ? nullptr
            : Halvec::audio::AudioDecoder::open(
                std::make_unique<streams::FileStream>(std::move(handle)), nullptr);
    }

    QTemporaryDir _folder;
};

TEST_F(Rendering, makesSoundFilesOfScores)
{
    if (Halvec::audio::findSoundFont({}, nullptr).empty())
        GTEST_SKIP() << "there is no sound font";
    const QStringList part = {QStringLiteral("--bars"), QStringLiteral("1-2"),
                              QStringLiteral("--no-reverb")};
    for (const char *const name : {"x.wav", "x.flac", "x.ogg"}) {
        EXPECT_EQ(render(part, name).code, 0);
        const auto sound = opened(name);
        ASSERT_TRUE(sound) << name;
        EXPECT_EQ(sound->rate(), 44100);
        EXPECT_GT(sound->frames(), 3 * 44100);
        EXPECT_LT(sound->frames(), 15 * 44100);
    }
    EXPECT_EQ(render(part
                         + QStringList{QStringLiteral("--normalize"), QStringLiteral("--rate"),
                                       QStringLiteral("22050"), QStringLiteral("--bits"),
                                       QStringLiteral("24")},
                     "loud.wav")
                  .code,
              0);
    const auto loud = opened("loud.wav");
    ASSERT_TRUE(loud);
    EXPECT_EQ(loud->rate(), 22050);
    std::vector<float> frames(static_cast<std::size_t>(2 * loud->frames()));
    EXPECT_EQ(loud->read(frames.data(), loud->frames()), loud->frames());
    float highest = 0;
    for (const float value : frames)
        highest = std::max(highest, std::abs(value));
    EXPECT_NEAR(20 * std::log10(highest), -1, 0.05);
}

TEST_F(Rendering, writesStemsThatAddUpToTheWhole)
{
    if (Halvec::audio::findSoundFont({}, nullptr).empty())
        GTEST_SKIP() << "there is no sound font";
    const auto saintsTo = [&](const char *name, const QStringList &options) {
        return runTool(QStringList{QStringLiteral("render"), saints(), path(name),
                                   QStringLiteral("--bars"), QStringLiteral("1-2"),
                                   QStringLiteral("--bits"), QStringLiteral("float"),
                                   QStringLiteral("--gain"), QStringLiteral("0"),
                                   QStringLiteral("--no-reverb")}
                       + options);
    };
    ASSERT_EQ(saintsTo("whole.wav", {}).code, 0);
    ASSERT_EQ(saintsTo("stem.wav", {QStringLiteral("--stems")}).code, 0);
    EXPECT_FALSE(QFile::exists(path("stem.wav")));
    const auto framesOf = [&](const QString &name) {
        const auto sound = opened(name.toLatin1().constData());
        std::vector<float> frames(static_cast<std::size_t>(sound ? 2 * sound->frames() : 0));
        if (sound)
            sound->read(frames.data(), sound->frames());
        return frames;
    };
    std::vector<float> difference = framesOf(QStringLiteral("whole.wav"));
    const QStringList stems = QDir(_folder.path()).entryList({QStringLiteral("stem-*.wav")});
    EXPECT_EQ(stems.size(), 4);
    EXPECT_TRUE(stems.first().startsWith(QLatin1String("stem-1-Trumpet")))
        << stems.first().toStdString();
    for (const QString &stem : stems) {
        const auto frames = framesOf(stem);
        float highest = 0;
        for (std::size_t i = 0; i < std::min(frames.size(), difference.size()); ++i) {
            highest = std::max(highest, std::abs(frames[i]));
            difference[i] -= frames[i];
        }
        EXPECT_GT(highest, 0.001F) << stem.toStdString();
    }
    const auto energy = [](const std::vector<float> &values) {
        double sum = 0;
        for (const float value : values)
            sum += static_cast<double>(value) * value;
        return sum;
    };
    EXPECT_LT(energy(difference), 1e-5 * energy(framesOf(QStringLiteral("whole.wav"))));
    ASSERT_EQ(saintsTo("muted.wav", {QStringLiteral("--mute"), QStringLiteral("1")}).code, 0);
    ASSERT_EQ(saintsTo("solo.wav",
                       {QStringLiteral("--solo"), QStringLiteral("2"), QStringLiteral("--solo"),
                        QStringLiteral("3"), QStringLiteral("--solo"), QStringLiteral("4")})
                  .code,
              0);
    EXPECT_EQ(framesOf(QStringLiteral("muted.wav")), framesOf(QStringLiteral("solo.wav")));
}

TEST_F(Rendering, leavesTheOldFileWhenItIsInterrupted)
{
    if (Halvec::audio::findSoundFont({}, nullptr).empty())
        GTEST_SKIP() << "there is no sound font";
    writeFile(path("x.wav"), "old");
    QProcess process;
    process.start(QStringLiteral(ZARN_BINARY_DIR "/bin/zarn"),
                  {QStringLiteral("render"), saints(), path("x.wav"), QStringLiteral("--rate"),
                   QStringLiteral("96000")});
    ASSERT_TRUE(process.waitForStarted());
    // As soon as it listens to interrupts.
    const auto listens = [&process] {
        QFile status(QStringLiteral("/proc/%1/status").arg(process.processId()));
        if (!status.open(QIODevice::ReadOnly))
            return false;
        const QByteArray text = status.readAll();
        const int caught = text.indexOf("SigCgt:");
        return (text.mid(caught + 7, 18).trimmed().toULongLong(nullptr, 16) & 2) != 0;
    };
    while (process.state() == QProcess::Running && !listens())
        process.waitForFinished(2);
    ASSERT_EQ(process.state(), QProcess::Running);
    ::kill(static_cast<pid_t>(process.processId()), SIGINT);
    ASSERT_TRUE(process.waitForFinished(20'000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_TRUE(contains(process.readAllStandardError().toStdString(), "interrupted"));
    EXPECT_EQ(contentOf(path("x.wav")), "old");
    EXPECT_EQ(QDir(_folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

TEST_F(Rendering, leavesTheOldFileWhenTheDiskIsFull)
{
    if (Halvec::audio::findSoundFont({}, nullptr).empty())
        GTEST_SKIP() << "there is no sound font";
    writeFile(path("x.wav"), "old");
    QProcess process;
    process.start(QStringLiteral("bash"),
                  {QStringLiteral("-c"),
                   QStringLiteral("trap '' XFSZ; ulimit -f 100; exec '%1' render '%2' '%3'")
                       .arg(QStringLiteral(ZARN_BINARY_DIR "/bin/zarn"), saints(), path("x.wav"))});
    ASSERT_TRUE(process.waitForFinished(120'000));
    EXPECT_EQ(process.exitCode(), 1);
    const std::string error = process.readAllStandardError().toStdString();
    EXPECT_TRUE(contains(error, "x.wav")) << error;
    EXPECT_EQ(contentOf(path("x.wav")), "old");
    EXPECT_EQ(QDir(_folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

TEST_F(Rendering, refusesWhatItCannotDoAndWritesNothing)
{
    EXPECT_TRUE(contains(render({}, "x.mp3").err, "end in .wav, .flac or .ogg"));
    EXPECT_EQ(render({QStringLiteral("--bits"), QStringLiteral("float")}, "x.flac").code, 2);
    EXPECT_TRUE(contains(render({QStringLiteral("--gain"), QStringLiteral("loud")}, "x.wav").err,
                         "no number of decibels"));
    const ToolRun noFont =
        render({QStringLiteral("--font"), QStringLiteral("/etc/hostname")}, "x.wav");
    EXPECT_EQ(noFont.code, 1);
    EXPECT_TRUE(contains(noFont.err, "is no sound font"));
    for (const char *const name : {"x.mp3", "x.flac", "x.wav"})
        EXPECT_FALSE(QFile::exists(path(name)));
}

} // namespace
