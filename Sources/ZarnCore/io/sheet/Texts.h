// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/utils/rational.h>

#include <QString>

#include <cstdint>

namespace zarn {

class KeySignature;
class NoteDynamic;
class PitchClass;
class RhythmValue;
class Tone;
enum class TripletFeel : std::uint8_t;

namespace sheet {

/// How the flats and sharps of a text are written.
enum class Signs : int { Letters, Symbols };

/// Letters of the note values as `zarn show` prints and `zarn edit` reads them, longest first:
/// "q" with its name "quarter" and so on.
struct RhythmLetter {
    const char *letter;
    const char *name;
};
ZARNCORE_EXPORT const RhythmLetter *rhythmLetters(); ///< 11 entries, by `RhythmValue::NoteValue`

/// "q", "e.", without tuplets.
ZARNCORE_EXPORT QString rhythmText(const RhythmValue &rhythm);

/// "a quarter", "3 quarters", "3/2 quarters".
ZARNCORE_EXPORT QString quartersText(const utils::rational &length);

/// "3" for the usual ratios (3 in the time of 2, 5 of 4...), otherwise "7:3".
ZARNCORE_EXPORT QString tupletText(unsigned notes, unsigned inTimeOf);

/// The spelling of a tone that lies nearest to a key with that many sharps (flats below 0) on the
/// line of fifths: chromatic notes lead upwards more often than not.
ZARNCORE_EXPORT PitchClass spelledInKey(Tone tone, int fifths);

/// "C#" or "C♯".
ZARNCORE_EXPORT QString pitchClassText(const PitchClass &pitch, Signs signs);

/// "C#4" for a spelled MIDI key; C4 is key 60.
ZARNCORE_EXPORT QString pitchText(const PitchClass &spelling, int midi, Signs signs);

/// "E minor", "B♭ major".
ZARNCORE_EXPORT QString keyText(const KeySignature &key, Signs signs);

/// "pp", "mf"; empty for none.
ZARNCORE_EXPORT QString dynamicText(const NoteDynamic &dynamic);

/// "swing 8ths (2:1)".
ZARNCORE_EXPORT QString feelText(TripletFeel feel);

} // namespace sheet
} // namespace zarn
