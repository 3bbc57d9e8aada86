// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/StaffSlots.h>
#include <ZarnCore/music/ZarnRhythmValue.h>

#include <pugixml.hpp>

#include <vector>

namespace zarn::io {

class ImportContext;

/// The values that fill a gap. What is no plain length is filled with values of the tuplet beside
/// it, that of the note behind the gap or, without one, of the note before; null for none. False
/// when no values add up to it.
bool findGapRhythms(const utils::rational &gap, const RhythmValue *before,
                    const RhythmValue *behind, std::vector<RhythmValue> &rhythms);

/// The values of a rest of this length: plain and dotted ones as far as they can be. False when no
/// values add up to it.
bool findRestRhythms(const utils::rational &length, std::vector<RhythmValue> &rhythms);

/// Fills time in which nothing is written with place holders.
class GapFiller {
public:
    explicit GapFiller(ImportContext &context) : _context(context) { }

    /// Fills a slot up to `end`. The node is where the report says that this did not work.
    void fill(VoiceSlot &slot, const utils::rational &end, pugi::xml_node node,
              const RhythmValue *behind = nullptr);

private:
    ImportContext &_context;
    std::vector<RhythmValue> _rhythms;
};

} // namespace zarn::io
