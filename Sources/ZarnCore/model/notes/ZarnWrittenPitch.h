// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnNoteName.h>
#include <ZarnCore/music/ZarnPitch.h>

namespace zarn {

class Bar;
class Note;

// How the notes and bars of a score are written. `Music` has each of these under its own name.

/// `Music::midi`: a note's own pitch, or what its string and fret sound on its staff, the capo and
/// the track's transposition counted in. -1 when there is neither.
ZARNCORE_EXPORT int writtenMidi(const Note &note);

/// `Music::noteName`: the letter on which a note is written; invalid for a note without a pitch.
ZARNCORE_EXPORT NoteName writtenNoteName(const Note &note);

/// `Music::computePitchAccordingToMidi`: how a note is written when its pitch is `midi`, with its
/// own accidental if some letter has it there, otherwise as in a key signature with that many
/// sharps (negative: flats).
ZARNCORE_EXPORT core::Pitch writtenPitch(const Note &note, int midi, int keyAccidentalCount);

/// `Music::drawingKeySignatureForBar`: the key of the bar's column, transposed as its track is
/// written. C major for a bar outside of a model.
ZARNCORE_EXPORT KeySignature writtenKeySignature(const Bar &bar);

} // namespace zarn
