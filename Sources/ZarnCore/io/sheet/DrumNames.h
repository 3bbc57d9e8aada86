// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zarn {

class Note;

namespace sheet {

/// How an unpitched note is shown: the row that it stands in and the letter of the hit.
struct DrumSound {
    QString row;    ///< "Hi-hat"
    QString letter; ///< "x" struck with a cross head, "o" otherwise or for an open sound
    int height = 0; ///< rows are sorted by it, the highest on top
};

/// By the note's percussion key (General MIDI Level 1 percussion key map), else by its place on
/// the staff.
DrumSound drumSoundOf(const Note &note);

} // namespace sheet
} // namespace zarn
