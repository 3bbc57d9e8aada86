// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/text/TextScanner.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/music/ZarnRhythmValue.h>

namespace zarn::io::text {

/// A note by its name: "c4", "f#5", "ebb3".
struct NamedPitch {
    PitchClass spelling;
    int midi = 0;
};

/// Whether letter, accidental and octave are at hand.
bool isNamedPitch(const TextScanner &scanner) noexcept;

/// Raises for what is none, and for pitches outside MIDI 0 to 127.
NamedPitch takeNamedPitch(TextScanner &scanner);

/// A length: letter, dots and tuplet, such as "q", "e." or "s/3"; each part may be missing. A
/// letter starts afresh, otherwise what is written changes the length before.
void takeLength(TextScanner &scanner, RhythmValue &rhythm);

/// General MIDI key of a drum, such as "snare"; -1, and nothing is taken, when none is at hand.
int takeDrum(TextScanner &scanner) noexcept;

/// Number of sharps (flats below 0) of a key such as "Bb" or "F#m"; raises for what is none.
struct NamedKey {
    int accidentals = 0;
    bool isMajor = true;
};
NamedKey takeKey(TextScanner &scanner);

} // namespace zarn::io::text
