// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/MidiTrackBuilder.h>
#include <ZarnCore/io/midi/TickMap.h>

namespace zarn::io {

/// Adds the pitch wheel of all bent notes of a plan that sound on a lane: its range once, then each
/// motion from point to point, in steps of a 32nd or ten milliseconds, whichever is shorter. It
/// goes back to the middle where the note ends.
void addPitchWheel(const playback::PlaybackPlan &plan, std::size_t lane, const TickMap &ticks,
                   MidiTrackBuilder &track);

} // namespace zarn::io
