// SPDX-License-Identifier: MIT
#include "new/NewCommand.h"

#include "common/Documents.h"
#include "common/Failure.h"
#include "common/MusicReader.h"
#include "common/Problems.h"
#include "common/Terminal.h"
#include "common/TrackWord.h"
#include "common/TuningWord.h"
#include "edit/EditLoop.h"
#include "edit/EditSession.h"
#include "show/ShowCommand.h"

#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <QFileInfo>

#include <algorithm>
#include <iostream>

namespace zarn::tool {

namespace {

constexpr int UsualBars = 16;
constexpr int MostBars = zarn::MasterTrack::MaxBars;
constexpr int LowestTempo = 1;
constexpr int HighestTempo = 1000;

/// Tells what is wrong with the value of an option, and which.
template <class Do>
auto forOption(const QString &option, Do work)
{
    try {
        return work();
    } catch (const Failure &failure) {
        throw UsageError{
            QStringLiteral("--%1: %2").arg(option, QString::fromStdString(failure.what()))};
    }
}

void tune(const Track &track, const GuitarTuning &tuning)
{
    for (const auto &staff : track.staves())
        staff->setTuning(tuning);
}

/// In the order of the options; strings and a tuning are for the track in front of them.
std::vector<std::shared_ptr<Track>> makeTracks(const Arguments &arguments)
{
    std::vector<std::shared_ptr<Track>> tracks;
    for (const auto &given : arguments.given()) {
        const QString &option = given.first;
        const QString &value = given.second;
        if (option == QStringLiteral("track"))
            tracks.push_back(forOption(option, [&] { return makeTrack(value); }));
        if (option != QStringLiteral("tuning") && option != QStringLiteral("strings"))
            continue;
        if (tracks.empty())
            throw UsageError{
                QStringLiteral("--%1 belongs behind the --track that it is for").arg(option)};
        const Track &track = *tracks.back();
        const GuitarTuning present = presentTuning(*track.staff(0));
        tune(track, forOption(option, [&] {
                 return option == QStringLiteral("tuning") ? tuningOf(present, value)
                                                           : usualTuning(present, value.toUInt());
             }));
    }
    if (tracks.empty())
        throw UsageError{QStringLiteral(
            "--track is missing; give one for each track, such as --track steelGuitar")};
    return tracks;
}

template <class Parse>
auto parsed(const Arguments &arguments, const char *option, Parse parse, const char *example)
{
    const QString text = arguments.value(QLatin1String(option));
    const auto value = parse(text);
    if (!value)
        throw UsageError{QStringLiteral("--%1 takes %2, not \"%3\"")
                             .arg(QLatin1String(option), QLatin1String(example), text)};
    return *value;
}

void setUp(Score &score, const Arguments &arguments)
{
    const auto bars =
        static_cast<unsigned>(arguments.number(QStringLiteral("bars"), 1, MostBars, UsualBars));
    score.createBars(0, bars);
    if (arguments.has(QStringLiteral("time")))
        score.setMasterTimeSignature(0, bars - 1,
                                     parsed(arguments, "time", parseTime, "a time such as 3/4"));
    if (arguments.has(QStringLiteral("key")))
        score.setMasterKeySignature(
            0, bars - 1, parsed(arguments, "key", parseKey, "a key such as G, Bb or F#m"));
    if (arguments.has(QStringLiteral("tempo"))) {
        TempoAutomation tempo;
        tempo.setValue(static_cast<float>(
            arguments.number(QStringLiteral("tempo"), LowestTempo, HighestTempo, LowestTempo)));
        score.modifyMasterTrackAutomations({}, {&tempo});
    }
    score.changeProperty(ScoreProperty::Title, arguments.value(QStringLiteral("title")));
    score.changeProperty(ScoreProperty::Artist, arguments.value(QStringLiteral("artist")));
}

int runNew(const Arguments &arguments, const Terminal &terminal)
{
    const std::string path = arguments.operand(0);
    requireWritableFormat(path);
    if (!isStandardStream(path) && QFileInfo::exists(arguments.operands().first())
        && !arguments.has(QStringLiteral("force")))
        throw Failure(path + ": is there already; --force replaces it");
    const auto tracks = makeTracks(arguments);
    Score score;
    setUp(score, arguments);
    for (const auto &track : tracks)
        if (!score.insertTrack(score.trackCount(), track))
            throw Failure(path + ": the track \"" + track->name() + "\" cannot be added");
    const bool isPiped = isStandardStream(path);
    OpenedDocument document;
    document.model = score.scoreModel();
    EditSession session(document, path, terminal, isPiped ? std::cerr : std::cout);
    if (runCommands(session, arguments.values(QStringLiteral("command"))) == LoopEnd::AtError)
        return Failed;
    const ScoreModel &model = session.model();
    warnOfLosses(saveDocument(model, path, terminal), path);
    if (isPiped)
        return Done;
    ShownPart part;
    part.lastBar = std::max(model.masterTrack()->masterBarCount(), 1u) - 1;
    std::cout << pictureOf(model, part, terminal);
    return Done;
}

} // namespace

Subcommand newCommand()
{
    return {
        QStringLiteral("new"),
        QStringLiteral("OUT"),
        1,
        1,
        QStringLiteral("Makes an empty score with ready-made tracks."),
        QStringLiteral(
            "Give --track once for each track: guitar, bass, piano or drums; a category of\n"
            "\"zarn catalog instruments\"; or a name or number, counted from 1, of\n"
            "\"zarn catalog gm\". --strings and --tuning apply to the track before them. A tuning\n"
            "is a name of \"zarn catalog tunings\" or the notes of the strings, the lowest first,\n"
            "one for each string. --command takes whatever can be typed in \"zarn edit\". Then "
            "the\n"
            "new score is shown. With - for OUT, it goes to standard output instead.\n\n"
            "    zarn new -t steelGuitar --tuning \"Drop D\" -t bass -t drums --bars 12 song.zarn\n"
            "    zarn new -t electricGuitar --strings 7 --tuning \"Drop A\" heavy.zarn\n"
            "    zarn new -t 41 -t 42 -t 43 --time 3/4 --key Eb --tempo 84 trio.zarn\n"
            "    zarn new -t drums -b 2 -c 'write 1:1 \"[kick hihat]e hihat\"' beat.zarn\n"
            "    zarn new -t guitar --tuning \"C2 G2 D3 G3 B3 E4\" idea.zarn"),
        {{QStringLiteral("track"), QStringLiteral("t"), QStringLiteral("T"),
          QStringLiteral("Add a track for the instrument T.")},
         {QStringLiteral("strings"), QStringLiteral("s"), QStringLiteral("N"),
          QStringLiteral("Give that track N strings.")},
         {QStringLiteral("tuning"), QStringLiteral("u"), QStringLiteral("U"),
          QStringLiteral("Tune that track.")},
         {QStringLiteral("bars"), QStringLiteral("b"), QStringLiteral("N"),
          QStringLiteral("Make N bars instead of 16.")},
         {QStringLiteral("time"), QString(), QStringLiteral("M/N"),
          QStringLiteral("Set the time, instead of 4/4.")},
         {QStringLiteral("key"), QString(), QStringLiteral("K"),
          QStringLiteral("Set the key as it sounds, such as G, Bb or F#m.")},
         {QStringLiteral("tempo"), QString(), QStringLiteral("N"),
          QStringLiteral("Set the tempo to N quarters per minute.")},
         {QStringLiteral("title"), QString(), QStringLiteral("TEXT"),
          QStringLiteral("Give the score a title.")},
         {QStringLiteral("artist"), QString(), QStringLiteral("TEXT"),
          QStringLiteral("Set the artist.")},
         {QStringLiteral("command"), QStringLiteral("c"), QStringLiteral("COMMAND"),
          QStringLiteral("Do COMMAND in the new score; may be given several times.")},
         {QStringLiteral("force"), QString(), QString(),
          QStringLiteral("Replace a file that is there already.")}},
        runNew,
    };
}

} // namespace zarn::tool
