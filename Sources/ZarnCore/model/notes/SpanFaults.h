// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/notes/ZarnKeptBeats.h>

#include <vector>

namespace zarn {

class Track;

/// A sign of a pedal, a line behind words, a numbered slur or a word of lyrics that lacks its other
/// end, or meets another of its kind.
///
/// A pedal may be held to the end of the staff, and words may begin and break off at the ends of
/// their line: it waits for notes.
struct BrokenSpan {
    KeptBeats::Place place; ///< the track left at 0
    const char *text;       ///< "a pedal that is lifted without being down"
};

/// Line by line.
ZARNCORE_EXPORT std::vector<BrokenSpan> brokenSpans(const Track &track);

/// Mends or takes off what is broken; returns it.
ZARNCORE_EXPORT std::vector<BrokenSpan> mendBrokenSpans(const Track &track);

} // namespace zarn
