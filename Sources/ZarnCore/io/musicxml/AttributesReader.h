// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/PartFacts.h>

namespace zarn::io {

class ImportContext;
class MeasureTimeline;
class StaffTranspositions;
struct SourceTally;

/// The symbol of a <time>; null for a meter that is written with both numbers, or not at all.
const char *symbolOf(MeterSign sign) noexcept;

/// Reads <attributes>: divisions, keys, times, clefs, staves, tunings, transpositions and
/// signs that repeat bars.
class AttributesReader {
public:
    AttributesReader(ImportContext &context, SourceTally &tally,
                     StaffTranspositions &transpositions);

    /// `timeline` gives the position and takes new divisions.
    void read(pugi::xml_node node, PartFacts &facts, MeasureTimeline &timeline);

private:
    void readDivisions(pugi::xml_node node, MeasureTimeline &timeline);
    void readKey(pugi::xml_node node, PartFacts &facts, const utils::rational &position);
    void readTime(pugi::xml_node node, PartFacts &facts);
    void readClef(pugi::xml_node node, PartFacts &facts, const utils::rational &position);
    void readStaffDetails(pugi::xml_node node, PartFacts &facts);
    void readMeasureStyle(pugi::xml_node node, PartFacts &facts);
    void readTranspose(pugi::xml_node node);
    void readStaves(pugi::xml_node node, PartFacts &facts);

    ImportContext &_context;
    SourceTally &_tally;
    StaffTranspositions &_transpositions;
};

} // namespace zarn::io
