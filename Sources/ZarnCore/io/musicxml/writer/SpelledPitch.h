// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <bitset>
#include <cstddef>

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

/// The same, which remembers how keys are spelled that no note says anything of.
class PitchSpelling {
public:
    SpelledPitch of(const Note &note, int midi, int fifths);

private:
    static constexpr std::size_t keyCount = 128;

    std::array<SpelledPitch, keyCount> _usual;
    std::bitset<keyCount> _known;
    int _fifths = 0; ///< that they are known for
};

} // namespace zarn::io
