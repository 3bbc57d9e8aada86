// SPDX-License-Identifier: MIT
#pragma once

namespace zarn {
class Note;
}

namespace zarn::io {

/// A <pitch>: the step, 0 for C to 6 for B, its alteration in semitones, and the octave, 4 from
/// middle C on.
struct SpelledPitch {
    int step = 0;
    int alter = 0;
    int octave = 4;
};

/// How a note of a MIDI key, as written, is spelled: as it says, else as a key of so many fifths
/// has it.
SpelledPitch spelledPitch(const Note &note, int midi, int fifths);

} // namespace zarn::io
