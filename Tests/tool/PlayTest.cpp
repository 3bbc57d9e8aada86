// SPDX-License-Identifier: MIT
// `zarn play` on SDL's driver that writes what a sound card would get into a file.
#include "ToolRun.h"

#include <ZarnAudio/ZarnAudioDecoder.h>
#include <ZarnAudio/ZarnSoundFonts.h>
#include <filesystem/DiskFileSystem.h>
#include <streams/FileStream.h>

#include <QElapsedTimer>
#include <QFileInfo>

#include <cmath>
#include <csignal>
#include <cstring>
#include <vector>

namespace {

using namespace zarn::test;

class PlayCommand : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (Halvec::audio::findSoundFont({}, nullptr).empty())
            GTEST_SKIP() << "there is no sound font";
        qputenv("SDL_AUDIODRIVER", "disk");
        qputenv("SDL_DISKAUDIOFILE", _folder.file("played.raw").toLocal8Bit());
        qputenv("SDL_DISKAUDIODELAY", "0");
    }
    void TearDown() override
    {
        for (const char *const name :
             {"SDL_AUDIODRIVER", "SDL_DISKAUDIOFILE", "SDL_DISKAUDIODELAY"})
            qunsetenv(name);
    }

    static ToolRun play(const QStringList &options)
    {
        return runTool(QStringList{QStringLiteral("play"), saints()} + options);
    }

    /// What was played, two channels of floats.
    std::vector<float> played() const
    {
        const std::string bytes = contentOf(_folder.file("played.raw"));
        std::vector<float> frames(bytes.size() / sizeof(float));
        std::memcpy(frames.data(), bytes.data(), frames.size() * sizeof(float));
        return frames;
    }

    static std::size_t onset(const std::vector<float> &values, float level = 0.003F)
    {
        std::size_t i = 0;
        while (i < values.size() && std::abs(values[i]) < level)
            ++i;
        return i;
    }

    Folder _folder;
};

TEST_F(PlayCommand, givesTheDeviceWhatRenderWrites)
{
    const QStringList part = {QStringLiteral("--no-reverb"), QStringLiteral("--mute"),
                              QStringLiteral("2")};
    const ToolRun run = play(part);
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(run.out, "");
    const QString file = _folder.file("x.wav");
    ASSERT_EQ(runTool(QStringList{QStringLiteral("render"), saints(), file,
                                  QStringLiteral("--bits"), QStringLiteral("float")}
                      + part)
                  .code,
              0);
    filesystem::DiskFileSystem files;
    const auto sound =
        Halvec::audio::AudioDecoder::open(std::make_unique<streams::FileStream>(files.open(
                                              file.toStdString(), filesystem::OpenMode::Read)),
                                          nullptr);
    ASSERT_TRUE(sound);
    std::vector<float> rendered(static_cast<std::size_t>(2 * sound->frames()));
    ASSERT_EQ(sound->read(rendered.data(), sound->frames()), sound->frames());
    const auto frames = played();
    const std::size_t late = onset(frames) - onset(rendered);
    std::size_t compared = 0;
    std::size_t differing = 0;
    for (std::size_t i = 0; i < rendered.size() && i + late < frames.size(); ++i, ++compared)
        differing += rendered[i] != frames[i + late] ? 1 : 0;
    EXPECT_GT(compared, rendered.size() * 9 / 10);
    EXPECT_EQ(differing, 0u);
}

TEST_F(PlayCommand, countsInAndSlowsDown)
{
    const ToolRun run =
        play({QStringLiteral("--bars"), QStringLiteral("1"), QStringLiteral("--speed"),
              QStringLiteral("200%"), QStringLiteral("--count-in"), QStringLiteral("1"),
              QStringLiteral("--metronome")});
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_GT(onset(played()), 0u);
    EXPECT_LT(onset(played()), played().size());
}

TEST_F(PlayCommand, keepsTime)
{
    qputenv("SDL_AUDIODRIVER", "dummy");
    QElapsedTimer timer;
    timer.start();
    const ToolRun run =
        play({QStringLiteral("--bars"), QStringLiteral("1"), QStringLiteral("--no-reverb")});
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(run.err, "");
    EXPECT_GT(timer.elapsed(), 900) << "a bar takes a second at least";
}

TEST_F(PlayCommand, endsCleanlyOnInterrupt)
{
    QProcess process;
    process.start(QStringLiteral(ZARN_BINARY_DIR "/bin/zarn"),
                  {QStringLiteral("play"), saints(), QStringLiteral("--loop")});
    ASSERT_TRUE(process.waitForStarted());
    for (int i = 0; i < 300 && QFileInfo(_folder.file("played.raw")).size() < 1'000'000; ++i)
        process.waitForFinished(50);
    ASSERT_EQ(process.state(), QProcess::Running) << "a loop does not end by itself";
    ::kill(static_cast<pid_t>(process.processId()), SIGINT);
    ASSERT_TRUE(process.waitForFinished(10'000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
}

TEST_F(PlayCommand, saysThatTheDeviceIsGone)
{
    qputenv("SDL_DISKAUDIOFILE", "/dev/full"); // SDL takes the device for unplugged
    const ToolRun run = play({});
    EXPECT_EQ(run.code, 1);
    EXPECT_TRUE(contains(run.err, "the sound device is gone")) << run.err;
}

TEST_F(PlayCommand, refusesWhatItCannotPlay)
{
    EXPECT_EQ(play({QStringLiteral("--speed"), QStringLiteral("fast")}).code, 2);
    EXPECT_EQ(play({QStringLiteral("--speed"), QStringLiteral("500")}).code, 2);
    const ToolRun track = play({QStringLiteral("--solo"), QStringLiteral("9")});
    EXPECT_EQ(track.code, 2);
    EXPECT_TRUE(contains(track.err, "there is no track \"9\"")) << track.err;
    qputenv("SDL_AUDIODRIVER", "nonsense");
    const ToolRun driver = play({});
    EXPECT_EQ(driver.code, 1);
    EXPECT_TRUE(contains(driver.err, "there is no sound")) << driver.err;
}

} // namespace
