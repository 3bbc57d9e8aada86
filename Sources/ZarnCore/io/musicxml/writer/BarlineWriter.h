// SPDX-License-Identifier: MIT
#pragma once

#include <pugixml.hpp>

namespace zarn {
class MasterTrack;
}

namespace zarn::io {

/// Write the <barline> at the start or the end of a bar, where it is more than a line: repeats,
/// endings, double and other lines, a fermata over the line.
void writeLeftBarline(const MasterTrack &master, unsigned bar, pugi::xml_node measure);
void writeRightBarline(const MasterTrack &master, unsigned bar, pugi::xml_node measure);

} // namespace zarn::io
