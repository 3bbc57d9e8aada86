// SPDX-License-Identifier: MIT
#include "draw/DrawOptions.h"

#include "common/Arguments.h"
#include "common/BarRange.h"
#include "common/SheetWords.h"
#include "common/Terminal.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>

namespace zarn::tool {
namespace {

constexpr double smallestStaff = 0.4;
constexpr double largestStaff = 100;

QStringList words(const Arguments &arguments, const QString &option)
{
    return arguments.value(option).split(QLatin1Char(','));
}

/// "2", "1,3" or "1-3,5", counted from 1.
std::vector<unsigned> readTracks(const Arguments &arguments, unsigned trackCount)
{
    std::vector<unsigned> tracks;
    for (const QString &word : words(arguments, QStringLiteral("tracks"))) {
        const auto ends = numberRange(word);
        if (!ends)
            throw UsageError{
                QStringLiteral("--tracks takes numbers such as 2 or 1-3,5, not \"%1\"").arg(word)};
        const auto [first, last] = *ends;
        if (last > trackCount)
            throw UsageError{QStringLiteral("--tracks %1: the score has %2")
                                 .arg(word, QString::fromStdString(counted(trackCount, "track")))};
        for (unsigned track = first; track <= last; ++track)
            if (std::find(tracks.begin(), tracks.end(), track - 1) == tracks.end())
                tracks.push_back(track - 1);
    }
    return tracks;
}

TrackNotations readNotations(const Arguments &arguments)
{
    TrackNotations notations{false, false, false};
    for (const QString &word : words(arguments, QStringLiteral("notation"))) {
        if (!addNotation(word, notations))
            throw UsageError{
                QStringLiteral("--notation takes staff, tab and slash, with commas between them, "
                               "not \"%1\"")
                    .arg(word)};
    }
    return notations;
}

ViewLayout readView(const QString &word)
{
    if (word == QStringLiteral("pages"))
        return ViewLayout::Pages;
    if (word == QStringLiteral("scroll"))
        return ViewLayout::Continuous;
    if (word == QStringLiteral("line"))
        return ViewLayout::SingleLine;
    throw UsageError{QStringLiteral("--view takes pages, scroll or line, not \"%1\"").arg(word)};
}

layout::SystemBreaks readSystems(const QString &word)
{
    if (word == QStringLiteral("document"))
        return layout::SystemBreaks::AsDocument;
    if (word == QStringLiteral("best"))
        return layout::SystemBreaks::ByThemselves;
    throw UsageError{QStringLiteral("--systems takes document or best, not \"%1\"").arg(word)};
}

void readStaffSize(const QString &word, PageSetup &setup)
{
    bool isNumber = false;
    const double size = word.toDouble(&isNumber);
    if (!isNumber || !(size >= smallestStaff && size <= largestStaff))
        throw UsageError{QStringLiteral("--staff-size takes the height of a staff of five lines "
                                        "in millimetres from 0.4 to 100, not \"%1\"")
                             .arg(word)};
    setup.staffSpace = micrometres(size / 4);
}

} // namespace

layout::LayoutOptions readLayoutOptions(const Arguments &arguments, const ScoreModel &model)
{
    layout::LayoutOptions options;
    if (arguments.has(QStringLiteral("tracks")))
        options.tracks = readTracks(arguments, model.trackCount());
    const BarRange bars = readBarRange(arguments, model.masterTrack()->masterBarCount());
    options.firstBar = bars.first;
    options.lastBar = bars.last;
    if (arguments.has(QStringLiteral("notation")))
        options.notations = readNotations(arguments);
    if (arguments.has(QStringLiteral("view")))
        options.view = readView(arguments.value(QStringLiteral("view")));
    if (arguments.has(QStringLiteral("systems")))
        options.breaks = readSystems(arguments.value(QStringLiteral("systems")));
    options.multiRest = arguments.has(QStringLiteral("multi-rests"));
    PageSetup setup = model.pageSetup();
    if (arguments.has(QStringLiteral("page"))) {
        const QString word = arguments.value(QStringLiteral("page"));
        if (!readSheet(word, setup))
            throw UsageError{QStringLiteral("--page takes %1, not \"%2\"").arg(sheetWords(), word)};
    }
    if (arguments.has(QStringLiteral("staff-size")))
        readStaffSize(arguments.value(QStringLiteral("staff-size")), setup);
    options.page = setup;
    return options;
}

} // namespace zarn::tool
