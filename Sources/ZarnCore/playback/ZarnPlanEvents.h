// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/playback/ZarnPlaybackPlan.h>

#include <cstdint>
#include <vector>

namespace zarn::playback {

/// Something that a player does at a time.
struct PlanEvent {
    /// At one time notes end first, then sounds change, then notes begin.
    enum class Kind : std::uint8_t { NoteOff, Control, NoteOn };

    utils::rational time; ///< in quarters of playing
    double second = 0;
    Kind kind = Kind::NoteOn;
    std::uint32_t index = 0; ///< of the note or the control in the plan
};

/// All of a plan in the order of playing.
ZARNCORE_EXPORT std::vector<PlanEvent> eventsOf(const PlaybackPlan &plan);

} // namespace zarn::playback
