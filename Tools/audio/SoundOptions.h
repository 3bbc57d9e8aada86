// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

#include <ZarnCore/playback/ZarnPlaybackPlan.h>

#include <optional>
#include <string>

namespace zarn {

class ScoreModel;

namespace tool {

/// Options of all that sounds.
Option fontOption();
Option trackOption();
Option muteOption();
Option soloOption();
Option noReverbOption();

/// What `--gain` says, in decibels; nothing without the option. Raises `UsageError`.
std::optional<double> gainOption(const Arguments &arguments);

/// What `--bars`, `--track`, `--mute` and `--solo` leave of a score. Tracks that are named are
/// heard whatever the switches of the score say. Raises `UsageError`.
playback::PlanOptions soundPlanOptions(const Arguments &arguments, const ScoreModel &model);

/// Has the banks that are installed known when a sound of the score asks for some.
void loadBanksFor(const ScoreModel &model);

/// The folder of a document, where the recordings of its audio tracks are looked for.
std::string folderOf(const std::string &path);

/// A line on standard error.
void warn(const std::string &text);

} // namespace tool
} // namespace zarn
