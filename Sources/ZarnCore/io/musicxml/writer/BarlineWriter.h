// SPDX-License-Identifier: MIT
#pragma once

#include <pugixml.hpp>

#include <vector>

namespace zarn {
class MasterBar;
class MasterTrack;
} // namespace zarn

namespace zarn::io {

class ExportContext;

/// What is written of the bracket of an ending at a bar.
struct EndingMark {
    bool begins = false;
    bool ends = false;
    bool isOpen = false;   ///< it ends without a hook: the music goes on from it
    bool isHidden = false; ///< it begins one that is not drawn
};

/// By bar. Bars under one bracket have the same passes.
std::vector<EndingMark> endingMarks(const MasterTrack &master);

/// Write the <barline> at the start or the end of a bar, where it is more than a line: repeats,
/// endings, double and other lines, a fermata over the line.
void writeLeftBarline(const MasterBar &column, const EndingMark &ending, ExportContext &context,
                      pugi::xml_node measure);
void writeRightBarline(const MasterTrack &master, unsigned bar, const EndingMark &ending,
                       pugi::xml_node measure);

} // namespace zarn::io
