// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zarn {

class Track;

namespace lilypond {

struct Frame;

/// The chord symbols over a track, with their diagrams, as music; empty without any.
std::string chordLineOf(const Track &track, const Frame &frame);

} // namespace lilypond
} // namespace zarn
