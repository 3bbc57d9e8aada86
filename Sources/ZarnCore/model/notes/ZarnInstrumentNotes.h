// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <memory>
#include <optional>

namespace zarn {

class Beat;
class InstrumentSet;
class Note;
struct NotePosition;

/// Adds to a beat the note that a MIDI key enters; see `InstrumentSet::addNoteFromMidi`.
ZARNCORE_EXPORT std::shared_ptr<Note> addNoteOfSet(const InstrumentSet &set, Beat &beat,
                                                   std::int32_t midi);

/// How a note of an articulation of a set is written: the key that plays it, its place on the staff
/// and the kind of its head. Nothing for a number that is none, or that a note cannot have.
ZARNCORE_EXPORT std::optional<NotePosition> positionOfArticulation(const InstrumentSet &set,
                                                                   int index) noexcept;

/// The first note of a beat with an articulation; empty when there is none.
ZARNCORE_EXPORT std::shared_ptr<Note> noteWithArticulation(const Beat &beat, int index);

} // namespace zarn
