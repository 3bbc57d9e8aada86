// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/music/ZarnPitchClass.h>

#include <optional>

namespace zarn {

class ScoreModelIndex;

/// A pitch as written: its MIDI key and how it is spelled.
struct TypedPitch {
    int midi = 0;
    PitchClass spelling;
};

/// What someone means who types the letter of a note at a place: altered as the key signature says,
/// in the octave that is nearest to the note in front of it in its voice, of two the higher one;
/// with no note close by, nearest to the middle line of the staff. Nothing for a place without a
/// bar, and where the key would be none of MIDI.
ZARNCORE_EXPORT std::optional<TypedPitch> typedPitch(const ScoreModelIndex &place, NoteName letter);

} // namespace zarn
