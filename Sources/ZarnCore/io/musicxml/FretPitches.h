// SPDX-License-Identifier: MIT
#pragma once

namespace zarn {
class Track;
}

namespace zarn::io {

class ImportContext;

/// Tells of the notes of a track whose strings and frets do not sound what is written: their
/// pitches are what sounds, and tablature shows the frets. One problem for all that follow one
/// another on a staff at the same distance, in the bar where they begin.
void tellFretsApart(const Track &track, ImportContext &context);

} // namespace zarn::io
