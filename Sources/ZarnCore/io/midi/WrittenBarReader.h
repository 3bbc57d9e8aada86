// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/WrittenBar.h>

#include <array>
#include <cstddef>
#include <vector>

namespace zarn::io {

/// How a bar is written, and when it begins in the file.
struct TimedBar {
    MidiTime time = 0;
    WrittenBar bar;
};

/// Gives the notes of a track, by channel, the places at which they are written, and adds those
/// that are not struck. A bar in which any note came, went or was moved since is left as it was
/// played. Answers how many those are.
std::size_t matchWrittenBars(std::vector<TimedBar> bars, std::array<PlayedNotes, 16> &notes,
                             std::vector<WrittenPlace> &places);

} // namespace zarn::io
