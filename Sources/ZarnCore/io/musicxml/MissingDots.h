// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/rational.h>

#include <pugixml.hpp>

namespace zarn::io {

/// Looks ahead from a <note> that the outermost tuplet of its voice begins at. When all notes of
/// the tuplet last exactly as long as they would with one dot, or with two, and none of them has
/// any, answers that number; else 0. Durations are in `divisions` of a quarter.
///
/// Some programs write the dots of a tuplet into the durations alone.
int missingDots(pugi::xml_node first, const utils::rational &divisions);

} // namespace zarn::io
