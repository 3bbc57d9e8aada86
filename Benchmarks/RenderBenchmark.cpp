// SPDX-License-Identifier: MIT
// Rendering a score with a sound font, against the program `fluidsynth` on the same events; CPU
// seconds, those of the kernel included.
#include "CpuTime.h"
#include "RatioReport.h"

#include <ZarnAudio/ZarnAudioWriter.h>
#include <ZarnAudio/ZarnScoreRenderer.h>
#include <ZarnAudio/ZarnSoundFonts.h>
#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMidiExporter.h>
#include <ZarnCore/io/ZarnMusicXmlImporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/playback/ZarnPlaybackPlan.h>
#include <filesystem/DiskFileSystem.h>

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {

using namespace Halvec::audio;
using zarn::playback::PlaybackPlan;

constexpr double milliseconds = 1e3;

class Rendering {
public:
    explicit Rendering(const std::string &score) : _font(findSoundFont({}, nullptr))
    {
        zarn::io::ImportReport report;
        const auto source = _files.open(score, filesystem::OpenMode::Read);
        _model = zarn::io::MusicXmlImporter().read(*source, report);
        zarn::io::ExportReport left;
        const auto midi = _files.open(path("song.mid"), filesystem::OpenMode::Write);
        zarn::io::MidiExporter().write(*_model, *midi, left);
        midi->close();
    }

    double fluidsynth() const
    {
        return median(RUSAGE_CHILDREN, [this] {
            QProcess process;
            process.start(QStringLiteral("fluidsynth"),
                          {QStringLiteral("-niq"), QStringLiteral("-r"), QStringLiteral("44100"),
                           QStringLiteral("-O"), QStringLiteral("s16"), QStringLiteral("-F"),
                           QString::fromStdString(path("theirs.wav")),
                           QString::fromStdString(_font),
                           QString::fromStdString(path("song.mid"))});
            if (!process.waitForFinished(-1) || process.exitCode() != 0)
                std::printf("fluidsynth failed\n");
        });
    }

    double ours()
    {
        return median(RUSAGE_SELF, [this] {
            const PlaybackPlan plan(*_model);
            ScoreRenderer renderer(plan, {});
            renderer.loadFont(_font, nullptr);
            AudioWriter writer(_files.open(path("ours.wav"), filesystem::OpenMode::Write),
                               AudioFormat{});
            if (!renderer.write(writer) || !writer.finish())
                std::printf("OURS FAILED: %s\n", writer.errorText().c_str());
        });
    }

    /// The plan and its events alone.
    double planning()
    {
        constexpr int often = 20;
        return median(RUSAGE_SELF,
                      [this] {
                          for (int i = 0; i < often; ++i) {
                              const PlaybackPlan plan(*_model);
                              benchmark::DoNotOptimize(PlanSound(plan).events(44100).size());
                          }
                      })
            / often;
    }

private:
    std::string path(const char *name) const
    {
        return _folder.filePath(QLatin1String(name)).toStdString();
    }

    QTemporaryDir _folder;
    filesystem::DiskFileSystem _files;
    std::string _font;
    std::shared_ptr<zarn::ScoreModel> _model;
};

} // namespace

/// The score is the first argument, a MusicXML document.
int main(int argc, char **argv)
{
    if (argc < 2 || QStandardPaths::findExecutable(QStringLiteral("fluidsynth")).isEmpty()) {
        std::printf("usage: renderbenchmark SONG.musicxml, with fluidsynth installed\n");
        return 1;
    }
    Rendering rendering(argv[1]);
    bench::RatioReport report;
    report.compareValues("render to WAV / fluidsynth", 1 / 0.95, [&rendering] {
        return std::pair(rendering.fluidsynth() * milliseconds, rendering.ours() * milliseconds);
    });
    report.compareValues("plan and events / rendering", 0.03, [&rendering] {
        return std::pair(rendering.ours() * milliseconds, rendering.planning() * milliseconds);
    });
    return report.run(argc - 1, argv + 1);
}
