// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

namespace zarn::io {

struct ListedPart;
struct NoteTally;
struct PartFacts;

/// The instrument category of a part: by its percussion keys and unpitched notes, by its names,
/// by its General MIDI program, by its tablature; a piano when nothing tells.
InstrumentSet::Type guessInstrument(const ListedPart &part, const PartFacts &facts,
                                    const NoteTally &notes);

} // namespace zarn::io
