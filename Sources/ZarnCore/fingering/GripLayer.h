// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/fingering/Grip.h>

#include <cstddef>
#include <vector>

namespace zarn::fingering {

/// The grips by which an event may be held, with the ways that lead to them.
struct GripLayer {
    /// A way from one grip to another, by their numbers in their layers.
    struct Arc {
        int from;
        int to;
        double cost;
        double likelihood = 1; ///< beside the other arcs of the layer
    };

    std::size_t event = 0;
    std::vector<Grip> grips;
    std::vector<double> costs; ///< of the easiest ways to the grips, the least first, which is 0
    double easiest = 0;        ///< effort of the easiest way to this layer
    std::vector<Arc> arcs;     ///< from the layer in front

    // By grip, from `GripDoubts`.
    std::vector<double> likelihoods; ///< of the ways from the start, as shares
    std::vector<double> doubts;      ///< notes that are likely to be played otherwise

    // By grip, of the ways that are searched: what they cost, the grip in front on the best one,
    // -1 for none, and the effort of that way.
    std::vector<double> wayCosts;
    std::vector<int> before;
    std::vector<double> efforts;
    int firstNode = 0; ///< in the graph
};

} // namespace zarn::fingering
