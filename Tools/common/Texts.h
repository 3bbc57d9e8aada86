// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/rational.h>

#include <QString>

#include <cstdint>

namespace zarn {

class KeySignature;
class NoteDynamic;
class PitchClass;
class RhythmValue;
class Tone;

namespace tool {

/// How the flats and sharps of a text are written.
enum class Signs : int { Letters, Symbols };

/// Letters of the note values as `zarn show` prints and `zarn edit` reads them, longest first:
/// "q" with its name "quarter" and so on.
struct RhythmLetter {
    const char *letter;
    const char *name;
};
const RhythmLetter *rhythmLetters(); ///< 11 entries, by `RhythmValue::NoteValue`

/// "q", "e.", without tuplets.
QString rhythmText(const RhythmValue &rhythm);

/// "a quarter", "3 quarters", "3/2 quarters".
QString quartersText(const utils::rational &length);

/// "3" for the usual ratios (3 in the time of 2, 5 of 4...), otherwise "7:3".
QString tupletText(unsigned notes, unsigned inTimeOf);

/// The spelling of a tone that lies nearest to a key with that many sharps (flats below 0) on the
/// line of fifths: chromatic notes lead upwards more often than not.
PitchClass spelledInKey(Tone tone, int fifths);

/// "C#" or "C♯".
QString pitchClassText(const PitchClass &pitch, Signs signs);

/// "C#4" for a spelled MIDI key; C4 is key 60.
QString pitchText(const PitchClass &spelling, int midi, Signs signs);

/// "E minor", "B♭ major".
QString keyText(const KeySignature &key, Signs signs);

/// "pp", "mf"; empty for none.
QString dynamicText(const NoteDynamic &dynamic);

/// "1.", "1. 3." for the passes of alternate endings, bit 0 for the first.
QString endingText(std::uint32_t passes);

} // namespace tool
} // namespace zarn
