// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/fingering/GripLayer.h>
#include <ZarnCore/fingering/ZarnPassage.h>

#include <cstddef>
#include <vector>

namespace zarn::fingering {

/// Tells how doubtful grips are. Players do not all take the easiest way: one is the likelier the
/// less effort it takes, by e for each unit. So every note has strings and fingers that it is
/// likely to be played by, over all ways through the passage, and a grip leaves the more doubt the
/// less likely its own are; the fingers of a chord that is struck are one shape, likely as a whole.
/// What holds on most of the easy ways is a safer answer than the easiest way alone, which a hair's
/// breadth of effort may set apart from very different ones.
class GripDoubts {
public:
    /// The passage outlives this.
    explicit GripDoubts(const Passage &passage) : _passage(passage) { }

    /// Fills in the doubts of the layers from `firstNew` on, which are all that there are behind
    /// those in front. What comes behind the last is open: those near the end are judged anew when
    /// there are more.
    void judge(std::vector<GripLayer> &layers, std::size_t firstNew);

private:
    void goForward(GripLayer &layer, const GripLayer *before);
    void goBack(const GripLayer &layer);
    void judge(GripLayer &layer);
    double likelihoodOfShape(const GripLayer &layer, const Grip &shape) const;

    const Passage &_passage;
    std::vector<double> _behind;      ///< by grip of the layer in hand: how likely what follows is
    std::vector<double> _behindFront; ///< the same of the layer in front of it
    std::vector<double> _likely;      ///< by grip
    std::vector<double> _strings;     ///< by note of the event and string
    std::vector<double> _fingers;     ///< by note, string and finger
};

} // namespace zarn::fingering
