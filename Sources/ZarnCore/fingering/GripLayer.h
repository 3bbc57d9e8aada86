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
    };

    std::size_t event = 0;
    std::vector<Grip> grips;
    std::vector<double> costs; ///< of the easiest ways to the grips, the least first
    std::vector<int> before;   ///< the grips in front on those ways; -1 for none
    std::vector<Arc> arcs;     ///< from the layer in front
    int firstNode = 0;         ///< in the graph
};

} // namespace zarn::fingering
