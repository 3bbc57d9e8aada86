// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/playback/ZarnPlaybackPlan.h>

#include <optional>

namespace zarn {

class ScoreModel;

namespace tool {

class Arguments;

/// What `--gain` says, in decibels; nothing without the option. Raises `UsageError`.
std::optional<double> gainOption(const Arguments &arguments);

/// What `--bars`, `--track`, `--mute` and `--solo` leave of a score. Tracks that are named are
/// heard whatever the switches of the score say. Raises `UsageError`.
playback::PlanOptions soundPlanOptions(const Arguments &arguments, const ScoreModel &model);

} // namespace tool
} // namespace zarn
