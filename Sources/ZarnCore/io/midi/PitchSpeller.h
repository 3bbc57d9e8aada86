// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/PlayedNote.h>
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnPitchClass.h>

#include <cstdint>
#include <vector>

namespace zarn::io {

/// A key at concert pitch from a time on.
struct KeyChange {
    MidiTime time = 0;
    int fifths = 0;
    bool isMinor = false;
};

/// Spells the notes of a part, which are in the order in which they are written. What the key
/// has is spelled by it; of other notes that spelling counts which lies nearer to the notes around
/// on the line of fifths and leads by a diatonic step to the next note of its voice.
void spell(PlayedNotes &notes, const std::vector<KeyChange> &keys);

/// Its place on the line of fifths: 0 is C, 1 is G, -2 is B flat.
int fifthOf(const PitchClass &spelling) noexcept;

/// The spelling of a place on the line of fifths, as `Note::setSpellingNumber` takes it.
std::uint8_t spellingNumberOfFifth(int fifth) noexcept;

/// Fifths from a sounding to the written spelling, for a transposition in semitones.
int fifthsOfTransposition(int offset) noexcept;

} // namespace zarn::io
