// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/fingering/GripChange.h>
#include <ZarnCore/fingering/GripFinder.h>
#include <ZarnCore/fingering/GripLayer.h>
#include <ZarnCore/fingering/Ringing.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace zarn::fingering {

/// Which ways between the grips of two layers are kept: those that are not much harder than the
/// easiest to the same grip, or all.
enum class KeptWays { Likely, All };

/// Makes the layers of a passage one behind the other. Of all ways to hold an event, those are kept
/// to which the easiest ways from the start lead: only so is a grip that costs more at once, but
/// spares the next ones, there when it is needed.
class GripLayerMaker {
public:
    /// So many grips of an event are enough to find the easiest way.
    static constexpr std::size_t MostGrips = 20;

    /// Passage and weights outlive this.
    GripLayerMaker(const Passage &passage, const FingeringWeights &weights);

    /// What is kept of the layers that are made from here on: which ways, and how many grips at
    /// most.
    void keep(KeptWays ways, std::size_t grips = MostGrips)
    {
        _keptWays = ways;
        _mostGrips = std::min(grips, GripFinder::MostOrigins);
    }

    GripLayer firstLayer(std::size_t event);
    GripLayer layerAfter(const GripLayer &before, std::size_t event);

    const GripFinder &finder() const { return _finder; }

private:
    /// A grip, and the easiest way to it.
    struct Reached {
        double cost;
        std::size_t number;            ///< among those that were found
        std::size_t firstArc, arcsEnd; ///< in `_arcs`
    };

    double costOfStart(const Grip &grip) const;
    void orderFound(const std::vector<GripFinder::Found> &found, const GripLayer &before);
    double reach(const GripFinder::Found &found, const GripLayer &before);
    void fill(GripLayer &layer, const std::vector<GripFinder::Found> &found,
              const GripLayer *before);
    const Grip *easiestBefore(const Reached &reached, const GripLayer &before) const;

    const Passage &_passage;
    const FingeringWeights &_weights;
    Ringing _ringing;
    GripChange _change;
    GripFinder _finder;
    KeptWays _keptWays = KeptWays::Likely;
    std::size_t _mostGrips = MostGrips;

    std::vector<GripChange::Departure> _departures;     ///< by grip of the layer in front
    std::vector<std::pair<double, std::size_t>> _order; ///< least possible costs of what was found
    std::vector<Reached> _reached;
    std::vector<GripLayer::Arc> _arcs;
    std::vector<double> _least; ///< of `_reached`, so many as are kept: a heap, the greatest first
};

} // namespace zarn::fingering
