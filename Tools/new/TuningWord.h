// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zarn {

class Track;

namespace tool {

/// Tunes the staves of a track as a person asks for it: by the name of a tuning that the library
/// has for the instrument ("Drop D"), one with as many strings as the track has before others, or
/// by the notes of the strings from the lowest on ("D2 A2 D3 G3 B3 E4"). Raises `UsageError`, which
/// offers what may have been meant.
void tune(Track &track, const QString &word);

} // namespace tool
} // namespace zarn
