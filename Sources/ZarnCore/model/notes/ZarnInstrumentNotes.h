// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <memory>

namespace zarn {

class Beat;
class InstrumentSet;
class Note;

/// Adds to a beat the note that a MIDI key enters; see `InstrumentSet::addNoteFromMidi`.
ZARNCORE_EXPORT std::shared_ptr<Note> addNoteOfSet(const InstrumentSet &set, Beat &beat,
                                                   std::int32_t midi);

} // namespace zarn
