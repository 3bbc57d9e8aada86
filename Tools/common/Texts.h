// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>

namespace zarn {

class KeySignature;
class Note;
class NoteDynamic;
class PitchClass;
class RhythmValue;

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

/// "3" for the usual ratios (3 in the time of 2, 5 of 4...), otherwise "7:3".
QString tupletText(unsigned notes, unsigned inTimeOf);

/// The spelling that a note carries, else the one that fits a key.
PitchClass spellingOf(const Note &note, const KeySignature &key);

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
