// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zarn {

class Staff;

namespace lilypond {

/// A line of lyrics of one voice, an entry for each beat with notes; empty where nothing is sung.
std::string lyricsLineOf(const Staff &staff, unsigned voice, unsigned line);

} // namespace lilypond
} // namespace zarn
