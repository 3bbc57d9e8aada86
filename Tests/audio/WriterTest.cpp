// SPDX-License-Identifier: MIT
#include "Sounds.h"

#include <filesystem/DiskFileSystem.h>

#include <QTemporaryDir>

#include <limits>

namespace {

using namespace sounds;
using Encoding = AudioFormat::Encoding;
using File = AudioFormat::File;

TEST(AudioWriter, cutsWhatIsTooLoudInEveryFormat)
{
    std::vector<float> loud = tones(4000, 1, 1.3F);
    loud[7] = std::numeric_limits<float>::quiet_NaN();
    loud[8] = std::numeric_limits<float>::infinity();
    for (const auto file : {File::Wav, File::Flac})
        for (const auto encoding : {Encoding::Pcm16, Encoding::Pcm24}) {
            const auto found = decoded(*decoder(encoded(loud, format(file, encoding, 1))));
            ASSERT_EQ(found.size(), loud.size());
            for (std::size_t i = 0; i < loud.size(); ++i) {
                const float value = std::isfinite(loud[i]) ? loud[i] : 0;
                ASSERT_NEAR(found[i], std::max(-1.0F, std::min(value, 1.0F)), 1 / 32000.0) << i;
            }
        }
    const auto floats = decoded(*decoder(encoded(loud, format(File::Wav, Encoding::Float32, 1))));
    EXPECT_GT(*std::max_element(floats.begin(), floats.end()), 1.2F);
}

TEST(AudioWriter, writesEqualBytesForEqualFrames)
{
    const auto frames = tones(9000, 2);
    for (const auto encoding : {Encoding::Pcm16, Encoding::Pcm24, Encoding::Float32}) {
        const auto wav = format(File::Wav, encoding);
        EXPECT_EQ(encoded(frames, wav), encoded(frames, wav));
        // The time of writing, which a PEAK chunk would hold, has seconds.
        EXPECT_EQ(encoded(frames, wav).find("PEAK"), std::string::npos);
    }
    const auto flac = format(File::Flac, Encoding::Pcm24);
    EXPECT_EQ(encoded(frames, flac), encoded(frames, flac));
}

TEST(AudioWriter, leavesAnOldFileUntilTheNewOneIsWhole)
{
    const QTemporaryDir folder;
    filesystem::DiskFileSystem files;
    const std::string path = folder.filePath(QStringLiteral("x.wav")).toStdString();
    put(files, path, "old");
    const auto frames = tones(100, 2);
    for (const auto file : {File::Wav, File::Flac, File::OggVorbis}) {
        AudioWriter writer(files.open(path, filesystem::OpenMode::Write),
                           format(file, Encoding::Pcm16));
        EXPECT_TRUE(writer.write(frames.data(), 100));
    }
    EXPECT_EQ(contentOf(files, path), "old");
    EXPECT_EQ(files.list(folder.path().toStdString()).size(), 1u);
    AudioWriter writer(files.open(path, filesystem::OpenMode::Write),
                       format(File::Wav, Encoding::Pcm16));
    EXPECT_TRUE(writer.write(frames.data(), 100));
    EXPECT_TRUE(writer.finish());
    EXPECT_EQ(contentOf(files, path).size(), 444u);
    EXPECT_FALSE(writer.finish());
    EXPECT_FALSE(writer.write(frames.data(), 1));
    EXPECT_NE(writer.errorText().find("x.wav: "), std::string::npos) << writer.errorText();
}

/// A disk of a few bytes.
class FullDisk final : public filesystem::FileHandle {
public:
    std::string path() const override { return "full.wav"; }
    std::int64_t size() const override { return _size; }
    std::int64_t position() const override { return _position; }

protected:
    bool doSeek(std::int64_t position) override
    {
        _position = position;
        return true;
    }
    std::int64_t doRead(void *, std::int64_t) override { return -1; }
    std::int64_t doWrite(const void *, std::int64_t count) override
    {
        if (_position + count > 20'000) {
            fail("there is no space left on the disk");
            return -1;
        }
        _position += count;
        _size = std::max(_size, _position);
        return count;
    }
    bool doClose() override
    {
        ADD_FAILURE() << "half a file is no file";
        return true;
    }

private:
    std::int64_t _size = 0;
    std::int64_t _position = 0;
};

TEST(AudioWriter, aFullDiskIsAnErrorThatSaysSo)
{
    const auto frames = tones(40'000, 2);
    for (const auto file : {File::Wav, File::Flac, File::OggVorbis}) {
        AudioWriter writer(std::make_unique<FullDisk>(), format(file, Encoding::Pcm16));
        const bool isWritten = writer.write(frames.data(), 40'000);
        EXPECT_FALSE(isWritten && writer.finish());
        EXPECT_EQ(writer.errorText(), "full.wav: there is no space left on the disk");
    }
}

TEST(AudioWriter, refusesWhatAFormatCannotHold)
{
    filesystem::RAMFileSystem files;
    const auto refusal = [&files](const AudioFormat &format) {
        AudioWriter writer(files.open("x", filesystem::OpenMode::Write), format);
        EXPECT_FALSE(writer.finish());
        return writer.errorText();
    };
    EXPECT_EQ(refusal(format(File::Flac, Encoding::Float32)), "x: FLAC holds no floats");
    EXPECT_NE(refusal(format(File::Flac, Encoding::Pcm16, 9)).find("9 channels"),
              std::string::npos);
    EXPECT_NE(refusal(format(File::Wav, Encoding::Pcm16, 0)).find("0 channels"), std::string::npos);
    EXPECT_FALSE(files.exists("x"));
}

TEST(AudioWriter, namesTellTheKindOfFile)
{
    File file = File::Wav;
    EXPECT_TRUE(audioFileOfName("a/song.FLAC", file));
    EXPECT_EQ(file, File::Flac);
    EXPECT_TRUE(audioFileOfName("song.oga", file));
    EXPECT_EQ(file, File::OggVorbis);
    for (const char *const name : {"", ".wav", "wav", "song.mp3", "song.wav.zip"})
        EXPECT_FALSE(audioFileOfName(name, file)) << name;
    EXPECT_EQ(file, File::OggVorbis);
}

} // namespace
