// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/TickMap.h>
#include <ZarnCore/io/midi/ZarnMidiTrack.h>

namespace zarn {
class ScoreModel;
}

namespace zarn::io {

class ExportReport;

/// Adds what holds for all tracks: the tempo, meters and keys of the bars as they are played, and
/// sections as markers. A bar that is shorter or longer than its meter has a signature of its own.
/// A score that gives no tempo has no tempo event: it plays at that which files have without one.
void addConductor(const ScoreModel &model, const playback::PlaybackPlan &plan, const TickMap &ticks,
                  MidiTrack &track, ExportReport &report);

} // namespace zarn::io
