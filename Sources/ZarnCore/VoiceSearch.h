// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnCoreUtils.h>

#include <memory>

namespace zarn {

// What `ZarnCoreUtils` searches along a voice with; see there.

using BeatPointer = std::shared_ptr<const Beat>;
using NotePointer = std::shared_ptr<const Note>;

enum class Walk { Forwards, Backwards };

BeatPointer findBeat(const BeatPointer &beat, const ZarnCoreUtils::BeatPredicate &accepts,
                     const BeatPointer &limit, SearchDeep deep, Walk walk);
NotePointer findNote(const NotePointer &note, const ZarnCoreUtils::NotePredicate &accepts,
                     const NotePointer &limit, SearchDeep deep, Walk walk);

/// The nearest note in the slot in a later, or earlier, beat.
NotePointer findFirstNote(const NotePointer &note, NoteSlot slot, Walk walk);

NotePointer findTieOriginNote(const NotePointer &note, NoteSlot slot);
NotePointer findBendOriginNote(const NotePointer &note, NoteSlot slot);

} // namespace zarn
