// SPDX-License-Identifier: MIT
#include "audio/render/RenderCommand.h"

#include "audio/SoundOptions.h"
#include "common/Documents.h"
#include "common/Failure.h"
#include "common/Interrupt.h"
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
#include <set>
#include <utility>

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

/// The gain by which the highest value comes to a decibel below full scale.
double normalizingGain(ScoreRenderer &renderer)
{
    const double peak = renderer.peak();
    return peak > 0 ? -1 - 20 * std::log10(peak) : 0;
}

/// "song.flac" becomes "song-2-Bass.flac" for the second track.
std::string stemPath(const QString &path, const Track &track)
{
    QString name;
    for (const QChar letter : QString::fromStdString(track.name()))
        name += letter.isLetterOrNumber() ? letter : QLatin1Char('-');
    const int suffix = path.lastIndexOf(QLatin1Char('.'));
    return QStringLiteral("%1-%2%3%4%5")
        .arg(path.left(suffix), QString::number(track.index() + 1),
             name.isEmpty() ? QString() : QStringLiteral("-"), name, path.mid(suffix))
        .toStdString();
}

/// Renders into a file that comes to be when it is whole.
void renderTo(const std::string &path, ScoreRenderer &renderer, const AudioFormat &format)
{
    filesystem::DiskFileSystem files;
    std::string error;
    auto handle = files.open(path, filesystem::OpenMode::Write, &error);
    if (handle == nullptr)
        throw Failure(error);
    AudioWriter writer(std::move(handle), format);
    const bool isDone = renderer.write(writer);
    if (Interrupt::isAsked())
        throw Failure(path + ": interrupted, nothing was written");
    if (!isDone || !writer.finish())
        throw Failure(writer.errorText());
}

/// Each track that is heard into a file of its own.
void renderStems(const QString &path, const ScoreModel &model, const playback::PlaybackPlan &plan,
                 ScoreRenderer &renderer, const AudioFormat &format)
{
    std::set<unsigned> tracks;
    for (const playback::PlannedNote &note : plan.notes())
        tracks.insert(note.track);
    for (const unsigned track : tracks) {
        renderer.setTrack(track);
        renderTo(stemPath(path, *model.tracks()[track]), renderer, format);
    }
}

int runRender(const Arguments &arguments, const Terminal &terminal)
{
    const AudioFormat format = formatOf(arguments);
    const auto gain = gainOption(arguments);
    std::string error;
    const std::string font = findSoundFont(arguments.value(option("font")).toStdString(), &error);
    if (font.empty())
        throw Failure(error);
    const OpenedDocument document = openDocument(arguments.operand(0), terminal);
    auto options = soundPlanOptions(arguments, *document.model);
    ScoreRenderer::Settings settings;
    // The renderer cuts the bars out of the sound of the whole.
    settings.bars = std::exchange(options.bars, std::nullopt);
    const playback::PlaybackPlan plan(*document.model, options);
    if (settings.bars) {
        const auto played = plan.bars().within(settings.bars->first, settings.bars->second);
        if (played.begin == played.end)
            throw Failure(QStringLiteral("bars %1 are never played")
                              .arg(arguments.value(option("bars")))
                              .toStdString());
    }
    settings.rate = format.rate;
    settings.gain = gain.value_or(settings.gain);
    settings.hasReverb = !arguments.has(option("no-reverb"));
    settings.master = masterSoundOf(document.model->masterTrack()->mastering());
    loadBanksFor(*document.model);
    ScoreRenderer renderer(plan, settings);
    Recordings recordings;
    renderer.setRecordings(recordings.of(
        document.model->audioTracks(), format.rate,
        plan.tempo().secondsAt(plan.start()) + plan.secondsBefore(), folderOf(document.path)));
    for (const auto &problem : recordings.problems())
        warn(problem);
    for (const auto &[path, reason] : renderer.refusedBanks())
        warn(reason + "; General MIDI plays what it should");
    if (!renderer.loadFont(font, &error))
        throw Failure(error);
    const Interrupt interrupt;
    renderer.setStop(Interrupt::isAsked);
    {
        const Progress progress(terminal, "rendering " + arguments.operand(1));
        if (arguments.has(option("normalize")))
            renderer.setGain(normalizingGain(renderer) + gain.value_or(0));
        if (arguments.has(option("stems")))
            renderStems(arguments.operands().at(1), *document.model, plan, renderer, format);
        else
            renderTo(arguments.operand(1), renderer, format);
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
        {fontOption(),
         {option("bars"), QStringLiteral("b"), QStringLiteral("A-B"),
          QStringLiteral("Write bars A to B, or one bar, alone, as they are in the whole.")},
         trackOption(),
         muteOption(),
         soloOption(),
         {option("stems"), QString(), QString(),
          QStringLiteral("Write each track into a file of its own: OUT-1-Trumpet.wav and so on.")},
         {option("rate"), QStringLiteral("r"), QStringLiteral("N"),
          QStringLiteral("Frames per second, 44100 unless given.")},
         {option("bits"), QStringLiteral("B"), QStringLiteral("N"),
          QStringLiteral("16, 24 or, in WAV, float; 16 unless given.")},
         {option("gain"), QStringLiteral("g"), QStringLiteral("DB"),
          QStringLiteral("Louder by so many decibels, 6 unless given; a limiter keeps it whole.")},
         {option("normalize"), QStringLiteral("n"), QString(),
          QStringLiteral("Bring the loudest place to 1 dB below full scale, --gain on top.")},
         noReverbOption()},
        runRender,
    };
}

} // namespace zarn::tool
