// SPDX-License-Identifier: MIT
// Decoding sound into WAV files, against the programs that come with the formats; CPU seconds,
// those of the kernel included.
#include "CpuTime.h"
#include "RatioReport.h"

#include <ZarnAudio/ZarnAudioDecoder.h>
#include <ZarnAudio/ZarnAudioWriter.h>
#include <filesystem/DiskFileSystem.h>
#include <streams/FileStream.h>

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace Halvec::audio;

constexpr int seconds = 120;

/// Plucked notes over a little noise: what packs about as well as music does.
std::vector<float> music(int rate)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<float> noise(-0.002F, 0.002F);
    std::vector<float> frames(static_cast<std::size_t>(2 * seconds * rate));
    for (float &value : frames)
        value = noise(random);
    for (int note = 0; note < 8 * seconds; ++note) {
        const double pitch = 110 * std::pow(2.0, static_cast<double>(random() % 36) / 12);
        const std::size_t start = 2 * static_cast<std::size_t>(note * rate / 8);
        const std::size_t end = std::min(frames.size(), start + 2 * static_cast<std::size_t>(rate));
        for (std::size_t i = start; i + 1 < end; i += 2) {
            const double time = static_cast<double>(i - start) / 2 / rate;
            const double phase = 2 * M_PI * pitch * time;
            const auto value = static_cast<float>(0.15 * std::exp(-4 * time)
                                                  * (std::sin(phase) + 0.4 * std::sin(3 * phase)));
            frames[i] += value;
            frames[i + 1] += note % 2 != 0 ? value : 0.5F * value;
        }
    }
    return frames;
}

class Decoding {
public:
    Decoding()
    {
        const auto frames = music(44100);
        for (const char *const name : {"song.wav", "song.flac", "song.ogg"}) {
            AudioFormat format;
            audioFileOfName(name, format.file);
            AudioWriter writer(open(name, filesystem::OpenMode::Write), format);
            if (!writer.write(frames.data(), static_cast<std::int64_t>(frames.size()) / 2)
                || !writer.finish())
                std::printf("%s\n", writer.errorText().c_str());
        }
    }

    void compare(bench::RatioReport &report, const QString &program, const QStringList &options,
                 const char *file)
    {
        if (QStandardPaths::findExecutable(program).isEmpty()) {
            std::printf("%s is not installed\n", qPrintable(program));
            return;
        }
        constexpr double target = 1 / 0.95;
        const std::string name = "decode " + std::string(file) + " / " + program.toStdString();
        report.compareValues(name, target, [this, program, options, file] {
            // Ours is on the disk when it is finished, so theirs has to get there too.
            const double reference = median(RUSAGE_CHILDREN, [&] {
                run(program, options);
                run(QStringLiteral("sync"), {path("theirs.wav")});
            });
            const double ours = median(RUSAGE_SELF, [&] { decode(file); });
            constexpr double milliseconds = 1e3;
            return std::pair(reference * milliseconds, ours * milliseconds);
        });
    }

    QString path(const char *name) const { return _folder.filePath(QLatin1String(name)); }

private:
    std::unique_ptr<filesystem::FileHandle> open(const char *name, filesystem::OpenMode mode)
    {
        return _files.open(path(name).toStdString(), mode);
    }

    static void run(const QString &program, const QStringList &options)
    {
        QProcess process;
        process.start(program, options);
        if (!process.waitForFinished(-1) || process.exitCode() != 0)
            std::printf("%s failed: %s\n", qPrintable(program),
                        process.readAllStandardError().constData());
    }

    void decode(const char *file)
    {
        const auto decoder = AudioDecoder::open(
            std::make_unique<streams::FileStream>(open(file, filesystem::OpenMode::Read)), nullptr);
        AudioWriter writer(open("ours.wav", filesystem::OpenMode::Write), AudioFormat{});
        std::vector<float> block(std::size_t(1) << 14);
        while (const auto count = decoder->read(block.data(), std::int64_t(block.size()) / 2))
            writer.write(block.data(), count);
        if (decoder->hasError() || !writer.finish())
            std::printf("OURS FAILED: %s\n", decoder->errorText().c_str());
    }

    QTemporaryDir _folder;
    filesystem::DiskFileSystem _files;
};

} // namespace

int main(int argc, char **argv)
{
    Decoding decoding;
    const QString out = decoding.path("theirs.wav");
    bench::RatioReport report;
    decoding.compare(report, QStringLiteral("sndfile-convert"),
                     {QStringLiteral("-pcm16"), decoding.path("song.wav"), out}, "song.wav");
    decoding.compare(report, QStringLiteral("sndfile-convert"),
                     {QStringLiteral("-pcm16"), decoding.path("song.flac"), out}, "song.flac");
    decoding.compare(
        report, QStringLiteral("flac"),
        {QStringLiteral("-dsf"), decoding.path("song.flac"), QStringLiteral("-o"), out},
        "song.flac");
    decoding.compare(report, QStringLiteral("sndfile-convert"),
                     {QStringLiteral("-pcm16"), decoding.path("song.ogg"), out}, "song.ogg");
    decoding.compare(report, QStringLiteral("oggdec"),
                     {QStringLiteral("-Q"), decoding.path("song.ogg"), QStringLiteral("-o"), out},
                     "song.ogg");
    return report.run(argc, argv);
}
