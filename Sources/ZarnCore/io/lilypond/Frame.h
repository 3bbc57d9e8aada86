// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/lilypond/RepeatStructure.h>
#include <ZarnCore/utils/rational.h>

#include <string>
#include <vector>

namespace zarn {

class ScoreModel;
class Voice;

namespace lilypond {

/// What all lines of music have to agree on in a bar.
struct FrameBar {
    /// In quarters: of the bar, or of the longest voice that overfills it.
    utils::rational length;

    /// Of the grace notes in front of its first beat, the longest in any voice. The other lines
    /// keep as much time free, or the bar line would be drawn twice.
    utils::rational grace;
};

struct Frame {
    std::vector<FrameBar> bars;
    RepeatStructure repeats;
};

Frame frameOf(const ScoreModel &model);

/// Length of the grace beats in front of the first beat of a voice, in quarters as they are
/// written.
utils::rational leadingGrace(const Voice &voice);

/// "\grace { s8 } ": time in front of a bar; empty for none.
std::string graceGap(const utils::rational &quarters);

} // namespace lilypond
} // namespace zarn
