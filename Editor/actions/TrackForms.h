// SPDX-License-Identifier: MIT
#pragma once

#include "actions/ScoreStep.h"

/// What is asked about tracks and about the whole score.
namespace zarn::editor {

Change askTrackSettings(const ActionContext &context);
Change askLyrics(const ActionContext &context);
Change askLyricsStart(const ActionContext &context);
/// Bars in each system, of the track or of the full score.
Change askTrackSystems(const ActionContext &context);
Change askScoreSystems(const ActionContext &context);
Change askInformation(const ActionContext &context);
Change askPageTexts(const ActionContext &context);
/// A sound file that plays along.
Change askRecording(const ActionContext &context);
Change askRecordingToChange(const ActionContext &context);
Change askRecordingToRemove(const ActionContext &context);

} // namespace zarn::editor
