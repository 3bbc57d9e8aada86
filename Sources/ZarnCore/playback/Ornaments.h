// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnBeat.h>

#include <vector>

namespace zarn::playback {

/// One of the notes that an ornament plays in the place of its note.
struct OrnamentNote {
    utils::rational offset; ///< in quarters from the start of the note
    utils::rational length;
    int semitones = 0; ///< above the note
};

/// The notes of a trill or another ornament over a length; empty for a plain note.
///
/// A trill alternates from the note to the one above at its speed, to the end. Of the others each
/// note but the last is a 32nd, at most a quarter of the length; their neighbours are those of the
/// key signature.
std::vector<OrnamentNote> ornamentNotes(const Beat &beat, const Note &note,
                                        const utils::rational &length);

} // namespace zarn::playback
