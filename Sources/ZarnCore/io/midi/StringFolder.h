// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/io/midi/PlayedNote.h>

#include <vector>

namespace zarn::io {

/// Files of guitars may have a channel for each string. When the notes of a part are such, each
/// gets its string, and the open strings are answered, the lowest first; else none.
std::vector<unsigned> foldStrings(PlayedNotes &notes, InstrumentSet::Type type);

} // namespace zarn::io
