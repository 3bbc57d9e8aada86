// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/WrittenMusic.h>

#include <pugixml.hpp>

namespace zarn::io {

/// Looks ahead from a <note> that the outermost tuplet of its voice begins at. When all notes of
/// the tuplet last exactly as long as they would with one dot, or with two, and none of them has
/// any, answers that number; else 0. Durations are in `divisions` of a quarter.
///
/// Some programs write the dots of a tuplet into the durations alone.
int missingDots(pugi::xml_node first, const utils::rational &divisions);

/// Looks ahead from a <note> that a tuplet begins at, by this number and without saying more, and
/// that has this time modification: the ratio of the outermost of the tuplets which that is the
/// product of. Where the bracket ends after three of nine notes in the time of four, it is a
/// triplet inside of another, whose own bracket is not written; else the modification itself.
TupletRatio outermostRatio(pugi::xml_node first, int number, const TupletRatio &modification);

} // namespace zarn::io
