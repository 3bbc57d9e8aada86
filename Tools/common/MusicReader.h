// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/music/ZarnRhythmValue.h>
#include <ZarnCore/music/ZarnTimeSignature.h>

#include <QString>

#include <optional>

namespace zarn::tool {

/// A MIDI key, with its spelling when it was given as a note name.
struct PitchValue {
    int midi = 0;
    std::optional<PitchClass> spelling;
};

// Musical values as people type them. Each answers nothing for a text that is no such value.

/// "quarter", "q", "q.", "8th", "1/8", "eighth/3:2", "e/3" (a triplet), "s/3:2/5:4": a letter or
/// name of `rhythmLetters` or a part of a whole note, up to three dots, up to two tuplets.
std::optional<RhythmValue> parseRhythm(const QString &text);

/// A text that `parseRhythm` reads: "eighth/3".
QString writtenRhythm(const RhythmValue &rhythm);

/// "3/4"; the denominator is a power of two up to 64, the numerator 1 to 99.
std::optional<TimeSignature> parseTime(const QString &text);

/// "G", "F#m", "Ebm", "Bb".
std::optional<KeySignature> parseKey(const QString &text);

/// "C#4" with C4 for key 60, or the number of a MIDI key.
std::optional<PitchValue> parsePitch(const QString &text);

/// "1", "1,3", "1-3" as bits, bit 0 for pass 1; "none" as 0.
std::optional<int> parsePasses(const QString &text);

} // namespace zarn::tool
