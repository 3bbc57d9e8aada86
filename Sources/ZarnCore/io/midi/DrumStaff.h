// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypesNotation.h>

#include <optional>

namespace zarn {

class Bar;
class InstrumentSet;
class Note;

namespace io {

/// Makes a note one of a drum kit: its key, its place on the staff and its kind of head, and its
/// articulation when the set is at hand (null when not).
void setDrum(Note &note, int key, const InstrumentSet *set);

struct DrumLook {
    int line; ///< half spaces above the bottom line
    NoteHead head;
};

/// How a drum that is nothing but its key looks: as the first articulation of its instrument set
/// that plays the key, else in a drum kit as above. Nothing for other notes.
std::optional<DrumLook> lookOfKey(const Note &note, const Bar &bar);

} // namespace io
} // namespace zarn
