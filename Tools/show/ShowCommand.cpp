// SPDX-License-Identifier: MIT
#include "show/ShowCommand.h"

#include "common/BarRange.h"
#include "common/Documents.h"
#include "common/Failure.h"
#include "common/MidiOptions.h"
#include "common/Terminal.h"
#include "show/ScoreDiagrams.h"

#include <ZarnCore/io/sheet/Page.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <iostream>
#include <limits>

namespace zarn::tool {

namespace {

int runShow(const Arguments &arguments, const Terminal &terminal)
{
    const OpenedDocument document =
        openDocument(arguments.operand(0), terminal, chosenMidiOptions(arguments));
    const ScoreModel &model = *document.model;
    ShownPart part;
    if (arguments.has(QStringLiteral("track")))
        part.track = static_cast<unsigned>(
            arguments.number(QStringLiteral("track"), 1,
                             std::max(1, static_cast<int>(model.trackCount())), 1)
            - 1);
    if (arguments.has(QStringLiteral("voice")))
        part.voice = static_cast<unsigned>(
            arguments.number(QStringLiteral("voice"), 1, Bar::MaxVoices, 1) - 1);
    const BarRange bars = readBarRange(arguments, model.masterTrack()->masterBarCount());
    part.firstBar = bars.first;
    part.lastBar = bars.last;
    const int width = arguments.number(QStringLiteral("width"), 20, 10000, terminal.width());
    const bool usesUtf8 = terminal.showsUtf8() && !arguments.has(QStringLiteral("ascii"));
    const Terminal shown(width, usesUtf8, terminal.showsColour());
    std::cout << pictureOf(model, part, shown);
    if (arguments.has(QStringLiteral("diagrams")))
        std::cout << scoreDiagrams(model, part, shown);
    return Done;
}

} // namespace

std::string pictureOf(const ScoreModel &model, const ShownPart &part, const Terminal &terminal)
{
    return sheet::pageOf(model, part,
                         {terminal.width(), terminal.showsUtf8(), terminal.showsColour()});
}

Subcommand showCommand()
{
    return {
        QStringLiteral("show"),
        QStringLiteral("FILE"),
        1,
        1,
        QStringLiteral("Shows the music: tablature, note names, drum grids."),
        QStringLiteral(
            "Fretted tracks are shown as tablature, drums as a grid, all others as note names\n"
            "under letters for their rhythm. Pitches and keys are named as they sound, C4 being\n"
            "middle C; \"zarn edit\" takes them by the same names. How notes are played and\n"
            "what is sung to them stands around, over and under them, and the signs in use are\n"
            "explained below the music. Bars are counted from 1 and line up in all tracks. - as\n"
            "FILE is standard input."),
        withMidiOptions(
            {{QStringLiteral("track"), QStringLiteral("t"), QStringLiteral("N"),
              QStringLiteral("Show one track, counted from 1.")},
             {QStringLiteral("voice"), QStringLiteral("v"), QStringLiteral("N"),
              QStringLiteral("Show one voice of each staff, counted from 1.")},
             {QStringLiteral("bars"), QStringLiteral("b"), QStringLiteral("A-B"),
              QStringLiteral("Show bars A to B, or one bar, as far as the score goes.")},
             {QStringLiteral("width"), QStringLiteral("w"), QStringLiteral("N"),
              QStringLiteral("Break lines at N columns instead of the terminal's width.")},
             {QStringLiteral("diagrams"), QStringLiteral("d"), QString(),
              QStringLiteral("Draw the chords of fretted tracks below the music.")},
             {QStringLiteral("ascii"), QString(), QString(),
              QStringLiteral("Use plain ASCII characters.")}}),
        runShow,
    };
}

} // namespace zarn::tool
