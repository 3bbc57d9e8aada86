// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/PlayedNote.h>

#include <vector>

namespace zarn::io {

/// Tells whether the notes of a staff are parts that move on their own, as in a choir or a fugue,
/// so that each note that sounds belongs to another line; else notes that begin and end together
/// are chords.
///
/// Parts are heard by how they move: mostly as many of them before as behind a change, at most
/// four; the lines beside each other seldom in parallel, and now and then against each other.
class PartWriting {
public:
    /// The notes have the times at which they are written, and are in the order of their starts.
    explicit PartWriting(const PlayedNotes &notes);

    /// Whether the note is one of the parts: never more than four of them sound at once.
    bool isPart(const PlayedNote &note) const;

private:
    /// A time in which more notes sound than there are parts.
    struct Crowd {
        MidiTime start;
        MidiTime end;
    };

    bool _isInParts = false;
    std::vector<Crowd> _crowds; ///< in the order of time
};

} // namespace zarn::io
