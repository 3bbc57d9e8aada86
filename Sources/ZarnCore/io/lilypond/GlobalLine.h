// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zarn {

class MasterTrack;

namespace io {
class ExportReport;
}

namespace lilypond {

struct Frame;

/// What all staves share, as music of skips: meters, tempos, sections, jumps, bar lines.
std::string globalLineOf(const MasterTrack &master, const Frame &frame, io::ExportReport &report);

} // namespace lilypond
} // namespace zarn
