// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/TickMap.h>
#include <ZarnCore/io/midi/ZarnMidiTrack.h>

#include <vector>

namespace zarn {
class ScoreModel;
} // namespace zarn

namespace zarn::io {

/// Adds how each bar of the tracks is written, each time that it is played. `tracks` are those of
/// the file by those of the score; nothing for those of which nothing is to be said.
void addNotatedBars(const ScoreModel &model, const playback::PlaybackPlan &plan,
                    const TickMap &ticks, const std::vector<MidiTrack *> &tracks);

/// Adds the meters of bars that have another length, and where the last bar ends.
void addWrittenMeters(const ScoreModel &model, const playback::PlaybackPlan &plan,
                      const TickMap &ticks, MidiTrack &midi);

} // namespace zarn::io
