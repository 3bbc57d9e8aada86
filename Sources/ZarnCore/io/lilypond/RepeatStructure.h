// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace zarn {

class MasterTrack;

namespace lilypond {

/// The repeats of a score as the language has them: braces around bars, which all voices write.
///
/// What does not nest, endings that make no sense together for one, is drawn by single commands on
/// bar lines instead, which do not unfold.
struct RepeatStructure {
    struct Words {
        std::string before;       ///< in front of the bar: "\repeat volta 2 {"
        std::string after;        ///< behind it: "}"
        std::string lineCommands; ///< on the bar line in front of it: "start-repeat"
    };

    /// By bar; one more for the line behind the last bar.
    std::vector<Words> bars;
};

RepeatStructure repeatStructureOf(const MasterTrack &master);

} // namespace lilypond
} // namespace zarn
