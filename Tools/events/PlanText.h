// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/playback/ZarnPlaybackPlan.h>

#include <QJsonObject>

#include <string>

namespace zarn {

class ScoreModel;

namespace tool {

class Terminal;

/// A plan for people: a line for each note, tempo and change of sound, under the bars as they are
/// played.
std::string planText(const ScoreModel &model, const playback::PlaybackPlan &plan,
                     const Terminal &terminal);

/// The same for programs: "bars", "tempos", "notes", "controls". Times are exact quarters
/// as texts, and seconds; all numbers count from 0.
QJsonObject planJson(const playback::PlaybackPlan &plan);

} // namespace tool
} // namespace zarn
