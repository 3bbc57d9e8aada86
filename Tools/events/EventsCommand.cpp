// SPDX-License-Identifier: MIT
#include "events/EventsCommand.h"

#include "common/BarRange.h"
#include "common/Documents.h"
#include "common/Terminal.h"
#include "events/PlanText.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QJsonDocument>

#include <algorithm>
#include <iostream>

namespace zarn::tool {

namespace {

int runEvents(const Arguments &arguments, const Terminal &terminal)
{
    const OpenedDocument document = openDocument(arguments.operand(0), terminal);
    const ScoreModel &model = *document.model;
    playback::PlanOptions options;
    options.bars = chosenBars(arguments, model.masterTrack()->masterBarCount());
    if (arguments.has(QStringLiteral("track")))
        options.tracks = {static_cast<unsigned>(
            arguments.number(QStringLiteral("track"), 1,
                             std::max(1, static_cast<int>(model.trackCount())), 1)
            - 1)};
    if (arguments.has(QStringLiteral("all")))
        options.audibility = playback::Audibility::Everything;
    if (arguments.has(QStringLiteral("channel-per-string")))
        options.channels = playback::Channels::OnePerString;
    const playback::PlaybackPlan plan(model, options);
    if (arguments.has(QStringLiteral("json")))
        std::cout << QJsonDocument(planJson(plan)).toJson(QJsonDocument::Compact).toStdString()
                  << '\n';
    else
        std::cout << planText(model, plan, terminal);
    return Done;
}

} // namespace

Subcommand eventsCommand()
{
    return {
        QStringLiteral("events"),
        QStringLiteral("FILE"),
        1,
        1,
        QStringLiteral("Lists what is heard when a score is played, in the order of playing."),
        QStringLiteral(
            "Every note sounds once: repeats are played, ties joined, graces, trills, tremolos\n"
            "and strums played out. A line has the bar (and which time it is played), the\n"
            "place in it in quarters from 1, the time in seconds, what sounds how loud and for\n"
            "how long, and by how many semitones its pitch moves. Muted tracks are left out."),
        {
            {QStringLiteral("bars"), QStringLiteral("b"), QStringLiteral("A-B"),
             QStringLiteral("Play bars A to B, or one bar, alone.")},
            {QStringLiteral("track"), QStringLiteral("t"), QStringLiteral("N"),
             QStringLiteral("Play one track, counted from 1.")},
            {QStringLiteral("all"), QString(), QString(),
             QStringLiteral("Play muted tracks too, and those beside a solo.")},
            {QStringLiteral("channel-per-string"), QString(), QString(),
             QStringLiteral("Give each string a MIDI channel of its own.")},
            {QStringLiteral("json"), QString(), QString(), QStringLiteral("Print JSON.")},
        },
        runEvents,
    };
}

} // namespace zarn::tool
