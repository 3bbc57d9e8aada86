// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/GripDoubts.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace zarn::fingering {

namespace {

constexpr std::size_t fingersAndNone = Grip::Fingers + 1;

/// Makes shares of a whole.
void makeShares(std::vector<double> &amounts)
{
    const double sum = std::accumulate(amounts.begin(), amounts.end(), 0.);
    const double share = 1 / static_cast<double>(amounts.size());
    for (double &amount : amounts)
        amount = sum > 0 ? amount / sum : share;
}

/// Calls `look` with the number of each fresh note within its event, its string and its finger.
template <class Look>
void forFreshNotes(const Grip &grip, const PassageEvent &event, Look &&look)
{
    for (unsigned bits = grip.fresh(); bits != 0; bits &= bits - 1) {
        const auto at = static_cast<std::size_t>(__builtin_ctz(bits));
        look(grip.note[at] - event.firstNote, at, static_cast<std::size_t>(grip.finger[at]));
    }
}

} // namespace

void GripDoubts::judge(std::vector<GripLayer> &layers, std::size_t firstNew)
{
    for (std::size_t at = firstNew; at < layers.size(); ++at)
        if (layers[at].likelihoods.empty())
            goForward(layers[at], at > 0 ? &layers[at - 1] : nullptr);
    _behind.assign(layers.back().grips.size(), 1);
    for (std::size_t at = layers.size(); at-- > firstNew;) {
        judge(layers[at]);
        if (at == firstNew)
            break;
        _behindFront.assign(layers[at - 1].grips.size(), 0);
        goBack(layers[at]);
    }
}

/// How likely the ways from the start to each grip are.
void GripDoubts::goForward(GripLayer &layer, const GripLayer *before)
{
    layer.likelihoods.assign(layer.grips.size(), 0);
    if (layer.arcs.empty()) {
        for (std::size_t i = 0; i < layer.grips.size(); ++i)
            layer.likelihoods[i] = std::exp(layer.costs.front() - layer.costs[i]);
    } else {
        double least = layer.arcs.front().cost;
        for (const GripLayer::Arc &arc : layer.arcs)
            least = std::min(least, arc.cost);
        for (GripLayer::Arc &arc : layer.arcs) {
            arc.likelihood = std::exp(least - arc.cost);
            layer.likelihoods[static_cast<std::size_t>(arc.to)] +=
                before->likelihoods[static_cast<std::size_t>(arc.from)] * arc.likelihood;
        }
    }
    makeShares(layer.likelihoods);
}

/// From what follows a layer to what follows the one in front of it.
void GripDoubts::goBack(const GripLayer &layer)
{
    for (const GripLayer::Arc &arc : layer.arcs)
        _behindFront[static_cast<std::size_t>(arc.from)] +=
            _behind[static_cast<std::size_t>(arc.to)] * arc.likelihood;
    makeShares(_behindFront);
    std::swap(_behind, _behindFront);
}

void GripDoubts::judge(GripLayer &layer)
{
    const PassageEvent &event = _passage.events[layer.event];
    _likely.resize(layer.grips.size());
    for (std::size_t i = 0; i < _likely.size(); ++i)
        _likely[i] = layer.likelihoods[i] * _behind[i];
    makeShares(_likely);
    _strings.assign(event.noteCount * static_cast<std::size_t>(Grip::Strings), 0);
    _fingers.assign(_strings.size() * fingersAndNone, 0);
    for (std::size_t i = 0; i < _likely.size(); ++i)
        forFreshNotes(layer.grips[i], event,
                      [&](std::size_t note, std::size_t string, std::size_t finger) {
                          const std::size_t place = note * Grip::Strings + string;
                          _strings[place] += _likely[i];
                          _fingers[place * fingersAndNone + finger] += _likely[i];
                      });
    layer.doubts.assign(layer.grips.size(), static_cast<double>(event.noteCount));
    for (std::size_t i = 0; i < _likely.size(); ++i) {
        const Grip &grip = layer.grips[i];
        const bool isChord = grip.isStruckChord();
        const double ofShape = isChord ? likelihoodOfShape(layer, grip) : 0;
        forFreshNotes(grip, event, [&](std::size_t note, std::size_t string, std::size_t finger) {
            const std::size_t place = note * Grip::Strings + string;
            const double ofFinger = isChord ? ofShape : _fingers[place * fingersAndNone + finger];
            layer.doubts[i] -= std::min((_strings[place] + ofFinger) / 2, 1.);
        });
    }
    for (double &doubt : layer.doubts)
        doubt = std::max(doubt, 0.);
}

/// How likely the strings of a chord are stopped by the same fingers, all of them: shapes that are
/// likely each are none when they are mixed.
double GripDoubts::likelihoodOfShape(const GripLayer &layer, const Grip &shape) const
{
    double likely = 0;
    for (std::size_t i = 0; i < _likely.size(); ++i) {
        const Grip &grip = layer.grips[i];
        if (grip.stopped == shape.stopped && grip.finger == shape.finger)
            likely += _likely[i];
    }
    return likely;
}

} // namespace zarn::fingering
