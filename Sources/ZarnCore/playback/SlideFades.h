// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/playback/ZarnPlannedNote.h>

#include <vector>

namespace zarn::playback {

/// The time in which a note slides away to nowhere.
struct SlideFade {
    utils::rational start;
    utils::rational end;
};

/// The expression (controller 11) of a track by which notes fade while they slide away; it is full
/// again when the track is struck next. A fade is left out where another note is heard meanwhile,
/// which would fade with it; notes that slide away together fade together.
std::vector<PlannedControl> controlsOfSlides(std::vector<SlideFade> fades,
                                             const std::vector<PlannedNote> &notes);

} // namespace zarn::playback
