// SPDX-License-Identifier: MIT
#include "render/RenderCommand.h"

#include "common/BarRange.h"
#include "common/Documents.h"
#include "common/Failure.h"
#include "common/Problems.h"
#include "common/Progress.h"
#include "common/Terminal.h"

#include <ZarnAudio/ZarnAudioWriter.h>
#include <ZarnAudio/ZarnScoreRenderer.h>
#include <ZarnAudio/ZarnSoundFonts.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/playback/ZarnPlaybackPlan.h>
#include <filesystem/DiskFileSystem.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace zarn::tool {

namespace {

using namespace Halvec::audio;

QString option(const char *name)
{
    return QString::fromLatin1(name);
}

AudioFormat formatOf(const Arguments &arguments)
{
    AudioFormat format;
    const std::string path = arguments.operand(1);
    if (!audioFileOfName(path, format.file))
        throw UsageError{QStringLiteral("%1: the name is to end in .wav, .flac or .ogg")
                             .arg(arguments.operands().at(1))};
    constexpr int highestRate = 96000;
    format.rate = arguments.number(option("rate"), 8000, highestRate, format.rate);
    const QString bits =
        arguments.has(option("bits")) ? arguments.value(option("bits")) : QStringLiteral("16");
    if (bits == QLatin1String("24"))
        format.encoding = AudioFormat::Encoding::Pcm24;
    else if (bits == QLatin1String("float") && format.file != AudioFormat::File::Flac)
        format.encoding = AudioFormat::Encoding::Float32;
    else if (bits != QLatin1String("16"))
        throw UsageError{QStringLiteral("--bits: there are 16, 24 and, in WAV, float")};
    return format;
}

/// Decibels, or nothing without the option.
std::optional<double> gainOf(const Arguments &arguments)
{
    if (!arguments.has(option("gain")))
        return std::nullopt;
    bool isNumber = false;
    const double gain = arguments.value(option("gain")).toDouble(&isNumber);
    constexpr double most = 60;
    if (!isNumber || !(std::abs(gain) <= most))
        throw UsageError{QStringLiteral("--gain: \"%1\" is no number of decibels from -60 to 60")
                             .arg(arguments.value(option("gain")))};
    return gain;
}

playback::PlanOptions planOptions(const Arguments &arguments, const ScoreModel &model)
{
    playback::PlanOptions options;
    options.bars = chosenBars(arguments, model.masterTrack()->masterBarCount());
    const int tracks = std::max(1, static_cast<int>(model.trackCount()));
    if (arguments.has(option("track")))
        options.tracks = {
            static_cast<unsigned>(arguments.number(option("track"), 1, tracks, 1) - 1)};
    return options;
}

/// The gain by which the highest value comes to a decibel below full scale.
double normalizingGain(ScoreRenderer &renderer)
{
    const double peak = renderer.peak();
    return peak > 0 ? -1 - 20 * std::log10(peak) : 0;
}

int runRender(const Arguments &arguments, const Terminal &terminal)
{
    const AudioFormat format = formatOf(arguments);
    const auto gain = gainOf(arguments);
    std::string error;
    const std::string font = findSoundFont(arguments.value(option("font")).toStdString(), &error);
    if (font.empty())
        throw Failure(error);
    const OpenedDocument document = openDocument(arguments.operand(0), terminal);
    const playback::PlaybackPlan plan(*document.model, planOptions(arguments, *document.model));

    ScoreRenderer::Settings settings;
    settings.rate = format.rate;
    settings.gain = gain.value_or(settings.gain);
    settings.hasReverb = !arguments.has(option("no-reverb"));
    ScoreRenderer renderer(plan, settings);
    if (!renderer.loadFont(font, &error))
        throw Failure(error);
    filesystem::DiskFileSystem files;
    auto handle = files.open(arguments.operand(1), filesystem::OpenMode::Write, &error);
    if (handle == nullptr)
        throw Failure(error);
    AudioWriter writer(std::move(handle), format);
    {
        const Progress progress(terminal, "rendering " + arguments.operand(1));
        if (arguments.has(option("normalize")))
            renderer.setGain(normalizingGain(renderer) + gain.value_or(0));
        if (!renderer.write(writer) || !writer.finish())
            throw Failure(writer.errorText());
    }
    warnOfProblems(document);
    return Done;
}

} // namespace

Subcommand renderCommand()
{
    return {
        QStringLiteral("render"),
        QStringLiteral("IN OUT"),
        2,
        2,
        QStringLiteral("Plays a score into a sound file, by a General MIDI sound font."),
        QStringLiteral(
            "OUT is a WAV, FLAC or Ogg Vorbis file, by its suffix. Repeats, tempo, dynamics,\n"
            "bends and all that \"zarn events\" lists are heard. The font is the one of --font,\n"
            "else of the variable ZARN_SOUNDFONT, else the first that \"zarn catalog fonts\"\n"
            "lists. WAV and FLAC files of one score are the same every time. A file that is\n"
            "there already is replaced, once the new one is complete."),
        {{option("font"), QStringLiteral("F"), QStringLiteral("FILE"),
          QStringLiteral("The sound font (SF2 or SF3).")},
         {option("bars"), QStringLiteral("b"), QStringLiteral("A-B"),
          QStringLiteral("Play bars A to B, or one bar, alone.")},
         {option("track"), QStringLiteral("t"), QStringLiteral("N"),
          QStringLiteral("Play track N alone, counted from 1.")},
         {option("rate"), QStringLiteral("r"), QStringLiteral("N"),
          QStringLiteral("Frames per second, 44100 unless given.")},
         {option("bits"), QStringLiteral("B"), QStringLiteral("N"),
          QStringLiteral("16, 24 or, in WAV, float; 16 unless given.")},
         {option("gain"), QStringLiteral("g"), QStringLiteral("DB"),
          QStringLiteral("Louder by so many decibels, 6 unless given; a limiter keeps it whole.")},
         {option("normalize"), QStringLiteral("n"), QString(),
          QStringLiteral("Bring the loudest place to 1 dB below full scale, --gain on top.")},
         {option("no-reverb"), QString(), QString(),
          QStringLiteral("Leave out reverb and chorus.")}},
        runRender,
    };
}

} // namespace zarn::tool
