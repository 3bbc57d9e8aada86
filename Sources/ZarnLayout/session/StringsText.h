// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zarn {
class Track;
}

namespace zarn::engraving {

/// What a player has to know of the strings before the first note: a tuning that is not the usual
/// one, the lowest string first, and the capo. "Drop D: D A D G B E, capo 2"; empty for nothing.
std::string stringsText(const Track &track);

} // namespace zarn::engraving
