// SPDX-License-Identifier: MIT
#pragma once

namespace zarn {

class InstrumentSet;
class Note;

namespace io {

/// Makes a note one of a drum kit: its key, its place on the staff and its kind of head, and its
/// articulation when the set is at hand (null when not).
void setDrum(Note &note, int key, const InstrumentSet *set);

} // namespace io
} // namespace zarn
