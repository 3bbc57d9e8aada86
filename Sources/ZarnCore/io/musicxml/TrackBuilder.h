// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/io/musicxml/PartFacts.h>
#include <ZarnCore/model/ZarnStaff.h>

#include <memory>
#include <optional>
#include <vector>

namespace zarn {
class Track;
}

namespace zarn::io {

class ImportContext;
struct ListedPart;
struct PartTally;

/// Bars of one part, by staff.
using StaffBars = std::vector<Staff::Bars>;

/// A tablature has no clef of its own: its music is written as for the instruments that use it,
/// by the MIDI key of the lowest string, where that is known.
ClefAndOttavia clefOfTablature(std::optional<int> lowestString);

/// Gives every bar the clef and ottava that hold at its start, and the changes inside of it.
void setClefs(const PartFacts &facts, StaffBars &staves, ImportContext &context);

/// Marks the bars that are written as signs which repeat the bar, or the two bars, before. They
/// keep their notes.
void setSimileMarks(const PartFacts &facts, StaffBars &staves, ImportContext &context);

/// Makes the track of a part around its bars.
std::shared_ptr<Track> makeTrack(InstrumentSet::Type type, const ListedPart &part,
                                 const PartFacts &facts, const PartTally &tally, StaffBars staves,
                                 ImportContext &context);

} // namespace zarn::io
