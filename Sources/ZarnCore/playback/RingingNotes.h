// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/playback/PlayedVoice.h>
#include <ZarnCore/playback/ZarnPlannedNote.h>

#include <cstddef>
#include <vector>

namespace zarn::playback {

/// A note that rings on, and the latest time at which it ends.
struct RingingNote {
    std::size_t note = 0; ///< in the list of the staff's notes
    utils::rational latest;
};

/// When a note of a beat of a voice ends at the latest that rings on: four bars later, and sooner
/// where the voice has a bar of rests or the piece ends.
utils::rational latestRinging(const PlayedBeats &beats, std::uint32_t beat, const PlayedBars &bars);

/// Lets notes of a staff ring until their string (without one, their key) is struck again, and no
/// longer than to their latest time.
void letRing(std::vector<PlannedNote> &notes, const std::vector<RingingNote> &ringing);

} // namespace zarn::playback
