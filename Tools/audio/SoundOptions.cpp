// SPDX-License-Identifier: MIT
#include "audio/SoundOptions.h"

#include "common/BarRange.h"
#include "common/BuiltIns.h"
#include "common/Terminal.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <set>

namespace zarn::tool {

namespace {

/// The tracks of all values of an option, counted from 0.
std::set<unsigned> tracksOf(const Arguments &arguments, const char *name, const ScoreModel &model)
{
    std::set<unsigned> tracks;
    for (const std::string &value : arguments.values(QString::fromLatin1(name))) {
        const QString text = QString::fromStdString(value);
        bool isNumber = false;
        const unsigned number = text.toUInt(&isNumber);
        if (!isNumber || number < 1 || number > model.trackCount())
            throw UsageError{
                QStringLiteral("--%1: there is no track \"%2\"; the score has %3")
                    .arg(QLatin1String(name), text,
                         QString::fromStdString(counted(model.trackCount(), "track")))};
        tracks.insert(number - 1);
    }
    return tracks;
}

/// Whether the switches of the score let a track be heard.
bool isOn(const ScoreModel &model, unsigned track)
{
    const auto &tracks = model.tracks();
    const bool hasSolo = std::any_of(tracks.begin(), tracks.end(), [](const auto &each) {
        return each->playback() == TrackPlayback::Solo;
    });
    return hasSolo ? tracks[track]->playback() == TrackPlayback::Solo
                   : tracks[track]->playback() != TrackPlayback::Mute;
}

} // namespace

Option fontOption()
{
    return {QStringLiteral("font"), QStringLiteral("F"), QStringLiteral("FILE"),
            QStringLiteral("The sound font (SF2 or SF3).")};
}

Option trackOption()
{
    return {QStringLiteral("track"), QStringLiteral("t"), QStringLiteral("N"),
            QStringLiteral("Play track N alone, counted from 1.")};
}

Option muteOption()
{
    return {QStringLiteral("mute"), QString(), QStringLiteral("N"),
            QStringLiteral("Leave out track N; may be given again.")};
}

Option soloOption()
{
    return {QStringLiteral("solo"), QString(), QStringLiteral("N"),
            QStringLiteral("Play only track N and others of --solo.")};
}

Option noReverbOption()
{
    return {QStringLiteral("no-reverb"), QString(), QString(),
            QStringLiteral("Leave out reverb and chorus.")};
}

std::optional<double> gainOption(const Arguments &arguments)
{
    const QString name = QStringLiteral("gain");
    if (!arguments.has(name))
        return std::nullopt;
    bool isNumber = false;
    const double gain = arguments.value(name).toDouble(&isNumber);
    constexpr double most = 60;
    if (!isNumber || !(std::abs(gain) <= most))
        throw UsageError{QStringLiteral("--gain: \"%1\" is no number of decibels from -60 to 60")
                             .arg(arguments.value(name))};
    return gain;
}

playback::PlanOptions soundPlanOptions(const Arguments &arguments, const ScoreModel &model)
{
    playback::PlanOptions options;
    options.bars = chosenBars(arguments, model.masterTrack()->masterBarCount());
    auto alone = tracksOf(arguments, "track", model);
    alone.merge(tracksOf(arguments, "solo", model));
    const auto muted = tracksOf(arguments, "mute", model);
    if (alone.empty() && muted.empty())
        return options;
    options.audibility = playback::Audibility::Everything;
    for (unsigned track = 0; track < model.trackCount(); ++track) {
        const bool isChosen = alone.empty() ? isOn(model, track) : alone.count(track) != 0;
        if (isChosen && muted.count(track) == 0)
            options.tracks.push_back(track);
    }
    if (options.tracks.empty())
        throw UsageError{QStringLiteral("no track is left to be heard")};
    return options;
}

void loadBanksFor(const ScoreModel &model)
{
    for (const auto &track : model.tracks())
        for (const auto &sound : track->sounds())
            if (!sound->orkaSound().soundbankPatchId().empty()) {
                loadedCore();
                return;
            }
}

std::string folderOf(const std::string &path)
{
    return QFileInfo(QString::fromStdString(path)).path().toStdString();
}

void warn(const std::string &text)
{
    std::cerr << "zarn: " << printable(text) << '\n';
}

} // namespace zarn::tool
