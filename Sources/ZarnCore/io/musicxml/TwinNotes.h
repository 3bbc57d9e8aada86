// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/utils/rational.h>

#include <memory>
#include <tuple>
#include <utility>
#include <vector>

namespace zarn::io {

/// A note at its place in a bar, with its pitch on the staff of the notes.
struct PlacedNote {
    utils::rational onset;
    bool isGrace;
    int pitch;
    std::shared_ptr<Note> note;
    std::shared_ptr<Beat> beat;

    auto key() const { return std::make_tuple(onset, !isGrace, pitch); }
    bool isAtBeatOf(const PlacedNote &other) const
    {
        return onset == other.onset && isGrace == other.isGrace;
    }
};
using PlacedNotes = std::vector<PlacedNote>;

/// The notes of a bar by time and pitch; a tablature's pitches are some semitones below those of
/// its notes.
PlacedNotes notesOf(const Bar &bar, int octave);

/// The note at whose beat another one begins, or else the last one before; the first one when all
/// are behind, null when there is none.
const PlacedNote *nearest(const PlacedNotes &notes, const PlacedNote &placed);

/// What the notes of a bar and those of its tablature have in common.
struct TwinNotes {
    PlacedNotes own;                                      ///< all, by time and pitch
    std::vector<std::pair<PlacedNote, PlacedNote>> pairs; ///< of the notes and of the tablature
    PlacedNotes ownAlone;
    PlacedNotes twinAlone;
};

/// Those that are at the same place are the same.
TwinNotes pairedByTime(const Bar &bar, const Bar &twin, int octave);

/// Voices with the same notes one after another are twins, too, where lengths or gaps that were
/// rounded have moved some of them: what is left of both finds its beat by its number.
void pairByOrder(const Bar &bar, const Bar &twin, int octave, TwinNotes &notes);

} // namespace zarn::io
