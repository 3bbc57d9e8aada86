// SPDX-License-Identifier: MIT
#include "ToolRun.h"

#include <ZarnAudio/ZarnAudioDecoder.h>
#include <ZarnAudio/ZarnSoundFonts.h>
#include <filesystem/DiskFileSystem.h>
#include <streams/FileStream.h>

#include <cmath>
#include <vector>

namespace {

using namespace zarn::test;

bool contains(const std::string &text, const char *part)
{
    return text.find(part) != std::string::npos;
}

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
