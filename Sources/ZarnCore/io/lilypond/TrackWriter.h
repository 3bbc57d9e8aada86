// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/lilypond/DrumTable.h>

#include <set>
#include <string>

namespace zarn {

class Track;

namespace io {
class ExportReport;
}

namespace lilypond {

struct Frame;

/// A track in both parts of a document: its music, and its staves in the score.
struct TrackText {
    std::string variables;
    std::string score;
    bool hasChords = false;
};

/// With `hasGlobal` its first staff has what all staves share.
TrackText trackTextOf(const Track &track, const Frame &frame, bool hasGlobal, DrumTable &drums,
                      std::set<std::string> &dynamics, io::ExportReport &report);

} // namespace lilypond
} // namespace zarn
