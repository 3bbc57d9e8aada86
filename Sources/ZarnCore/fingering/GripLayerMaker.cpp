// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/GripLayerMaker.h>

#include <ZarnCore/fingering/GripEffort.h>

#include <algorithm>
#include <limits>

namespace zarn::fingering {

namespace {

/// A way that takes so much more effort than the easiest is not one that players go.
constexpr double unlikely = 4;

} // namespace

GripLayerMaker::GripLayerMaker(const Passage &passage, const FingeringWeights &weights)
    : _passage(passage), _weights(weights), _ringing(_passage, _weights.longestRing),
      _change(_passage, _ringing, _weights), _finder(_passage, _ringing, _weights)
{
}

/// The effort of a grip that nothing leads to.
double GripLayerMaker::costOfStart(const Grip &grip) const
{
    double cost = static_cast<double>(grip.cost);
    addPresses(grip, grip.stopCount, [&](double FingeringWeights::*weight, float amount) {
        cost += _weights.*weight * static_cast<double>(amount);
    });
    return cost;
}

GripLayer GripLayerMaker::firstLayer(std::size_t event)
{
    const auto &found = _finder.find(event, {});
    _arcs.clear();
    _reached.clear();
    for (std::size_t i = 0; i < found.size(); ++i)
        _reached.push_back({costOfStart(found[i].grip), i, 0, 0});
    GripLayer layer;
    layer.event = event;
    fill(layer, found, nullptr);
    return layer;
}

GripLayer GripLayerMaker::layerAfter(const GripLayer &before, std::size_t event)
{
    const auto &found = _finder.find(event, before.grips);
    const double onset = _passage.events[before.event].onset;
    _departures.clear();
    for (const Grip &grip : before.grips)
        _departures.push_back(_change.leave(grip, onset, _passage.events[event].onset));
    orderFound(found, before);
    _arcs.clear();
    _reached.clear();
    _least.clear();
    for (const auto &[least, number] : _order) {
        if (_least.size() == _mostGrips && least >= _least.front())
            break;
        const std::size_t firstArc = _arcs.size();
        const double cost = reach(found[number], before);
        _reached.push_back({cost, number, firstArc, _arcs.size()});
        if (_least.size() == _mostGrips) {
            std::pop_heap(_least.begin(), _least.end());
            _least.pop_back();
        }
        _least.push_back(cost);
        std::push_heap(_least.begin(), _least.end());
    }
    GripLayer layer;
    layer.event = event;
    fill(layer, found, &before);
    return layer;
}

/// Puts first what may cost least: no change is easier than none.
void GripLayerMaker::orderFound(const std::vector<GripFinder::Found> &found,
                                const GripLayer &before)
{
    _order.clear();
    for (std::size_t i = 0; i < found.size(); ++i) {
        const auto easiest = static_cast<std::size_t>(__builtin_ctzll(found[i].origins));
        _order.emplace_back(before.costs[easiest] + static_cast<double>(found[i].grip.cost), i);
    }
    std::sort(_order.begin(), _order.end());
}

/// The cost of the easiest way to a grip. Adds the ways to `_arcs`.
double GripLayerMaker::reach(const GripFinder::Found &found, const GripLayer &before)
{
    const auto itself = static_cast<double>(found.grip.cost);
    double least = std::numeric_limits<double>::infinity();
    for (auto bits = found.origins; bits != 0; bits &= bits - 1) {
        const auto from = static_cast<std::size_t>(__builtin_ctzll(bits));
        if (_keptWays == KeptWays::Likely && before.costs[from] + itself >= least + unlikely)
            break;
        const double cost = _change.cost(_departures[from], found.grip) + itself;
        if (_keptWays == KeptWays::Likely && before.costs[from] + cost >= least + unlikely)
            continue;
        _arcs.push_back({static_cast<int>(from), 0, cost, 1});
        least = std::min(least, before.costs[from] + cost);
    }
    return least;
}

/// The grip in front on the easiest way to one.
const Grip *GripLayerMaker::easiestBefore(const Reached &reached, const GripLayer &before) const
{
    const auto cost = [&before](const GripLayer::Arc &arc) {
        return before.costs[static_cast<std::size_t>(arc.from)] + arc.cost;
    };
    const auto arcs = _arcs.begin();
    const auto easiest =
        std::min_element(arcs + static_cast<std::ptrdiff_t>(reached.firstArc),
                         arcs + static_cast<std::ptrdiff_t>(reached.arcsEnd),
                         [&cost](const GripLayer::Arc &left, const GripLayer::Arc &right) {
                             return cost(left) < cost(right);
                         });
    return &before.grips[static_cast<std::size_t>(easiest->from)];
}

/// Fills a layer with the easiest of what was reached. Costs count from the easiest on, so that
/// they stay exact in long pieces.
void GripLayerMaker::fill(GripLayer &layer, const std::vector<GripFinder::Found> &found,
                          const GripLayer *before)
{
    std::sort(_reached.begin(), _reached.end(), [](const Reached &left, const Reached &right) {
        return std::make_pair(left.cost, left.number) < std::make_pair(right.cost, right.number);
    });
    _reached.resize(std::min(_reached.size(), _mostGrips));
    const double least = _reached.front().cost;
    layer.easiest = (before != nullptr ? before->easiest : 0) + least;
    layer.grips.reserve(_reached.size());
    for (const Reached &reached : _reached) {
        const auto to = static_cast<int>(layer.grips.size());
        layer.grips.push_back(found[reached.number].grip);
        _change.follow(before != nullptr ? easiestBefore(reached, *before) : nullptr, layer.event,
                       layer.grips.back());
        layer.costs.push_back(reached.cost - least);
        for (std::size_t arc = reached.firstArc; arc < reached.arcsEnd; ++arc)
            layer.arcs.push_back({_arcs[arc].from, to, _arcs[arc].cost, 1});
    }
}

} // namespace zarn::fingering
