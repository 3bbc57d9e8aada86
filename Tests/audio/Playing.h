// SPDX-License-Identifier: MIT
#pragma once

#include "HeapCalls.h"
#include "Sounds.h"

#include <ZarnAudio/ZarnPlayer.h>
#include <ZarnAudio/ZarnSoundFonts.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMusicXmlImporter.h>
#include <ZarnCore/model/ZarnAudioTrack.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>
#include <filesystem/DiskFileSystem.h>

#include <QTemporaryDir>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

/// A player on an output that takes blocks when the test says so.
namespace playing {

using namespace sounds;
using State = Player::State;

inline constexpr int rate = 44100;

/// Takes sound when the test asks for it.
class ManualOutput final : public AudioOutput {
public:
    bool open(Source &source, int, std::string *error) override
    {
        if (!isThere && error != nullptr)
            *error = "no device";
        _source = isThere ? &source : nullptr;
        return isThere;
    }
    void close() noexcept override { _source = nullptr; }
    bool isLost() const noexcept override { return !isThere; }
    double latency() const noexcept override { return 0; }

    /// The next frames; counts what they had to do with the heap, locks and files.
    std::vector<float> take(std::int64_t count, std::int64_t block = 512)
    {
        std::vector<float> frames(static_cast<std::size_t>(2 * count));
        for (std::int64_t done = 0; done < count; done += block) {
            const auto before = heapCalls() + blockingCalls();
            _source->render(frames.data() + 2 * done, std::min(block, count - done));
            calls += heapCalls() + blockingCalls() - before;
        }
        return frames;
    }

    bool isThere = true;
    std::size_t calls = 0;

private:
    Source *_source = nullptr;
};

inline std::shared_ptr<zarn::ScoreModel> modelOf(const char *sample)
{
    filesystem::DiskFileSystem files;
    const auto handle =
        files.open(std::string(ZARN_SOURCE_DIR "/Samples/") + sample, filesystem::OpenMode::Read);
    zarn::io::ImportReport report;
    return zarn::io::MusicXmlImporter().read(*handle, report);
}

inline void readInto(zarn::Score &score, const char *sample)
{
    filesystem::DiskFileSystem files;
    const auto handle =
        files.open(std::string(ZARN_SOURCE_DIR "/Samples/") + sample, filesystem::OpenMode::Read);
    zarn::io::ImportReport report;
    zarn::io::MusicXmlImporter().importScore(*handle, score, report);
}

inline float highest(const std::vector<float> &frames)
{
    float value = 0;
    for (const float each : frames)
        value = std::max(value, std::abs(each));
    return value;
}

/// A tone of 5000 Hz as a recording.
inline std::shared_ptr<zarn::AudioTrack> toneTrack(const QTemporaryDir &folder, int seconds)
{
    std::vector<float> tone;
    for (int i = 0; i < seconds * rate; ++i)
        tone.push_back(0.5F * static_cast<float>(std::sin(2 * M_PI * 5000 * i / rate)));
    auto track = std::make_shared<zarn::AudioTrack>("tone");
    track->setFilePath(folder.filePath(QStringLiteral("tone.wav")).toStdString());
    filesystem::DiskFileSystem files;
    put(files, track->filePath(),
        encoded(tone, format(AudioFormat::File::Wav, AudioFormat::Encoding::Pcm16, 1)));
    return track;
}

class Playing : public ::testing::Test {
protected:
    void SetUp() override
    {
        std::string error;
        if (findSoundFont({}, &error).empty())
            GTEST_SKIP() << error;
        Player::Settings settings;
        settings.hasReverb = false;
        auto output = std::make_unique<ManualOutput>();
        _output = output.get();
        _player = std::make_unique<Player>(settings, std::move(output));
        ASSERT_TRUE(_player->open(&error)) << error;
    }

    /// Frames from the first one that is not silent.
    std::int64_t onset(const std::vector<float> &frames, float level = 0.003F) const
    {
        for (std::size_t i = 0; i < frames.size(); ++i)
            if (std::abs(frames[i]) > level)
                return static_cast<std::int64_t>(i / 2);
        return -1;
    }

    ManualOutput *_output = nullptr;
    std::unique_ptr<Player> _player;
};

} // namespace playing
