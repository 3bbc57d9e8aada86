// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/NotatedBar.h>

#include <array>
#include <cstddef>
#include <vector>

namespace zarn::io {

/// How a bar is written, and when it begins in the file.
struct TimedBar {
    MidiTime time = 0;
    NotatedBar bar;
};

/// Gives the notes of a track, by channel, the places at which they are written, and adds those
/// that are not struck. A bar in which any note came, went or was moved since is left as it was
/// played. Answers how many those are.
std::size_t matchNotatedBars(std::vector<TimedBar> bars, std::array<PlayedNotes, 16> &notes,
                             std::vector<WrittenPlace> &places);

} // namespace zarn::io
