// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/PlayedNote.h>
#include <ZarnCore/music/ZarnTimeSignature.h>

namespace zarn::io {

/// Listens for the bar lines of music that begins at once in a meter: long notes, chords and the
/// bass come at the beginning of bars. Answers the time in front of the first whole bar; 0 unless
/// another place than the beginning is clearly the stronger one. Notes are in the order of their
/// times, and those of percussion are not among them; `end` is where another meter comes.
MidiTime findPickup(const PlayedNotes &notes, const TimeSignature &meter, MidiTime end);

} // namespace zarn::io
