// SPDX-License-Identifier: MIT
#include "MarkLattice.h"

#include <ZarnCore/fingering/GripEffort.h>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace zarn::fingering;

namespace {

/// Grips of an event, and how many of those that agree with the marks are there in any case.
constexpr std::size_t mostGrips = 16;
constexpr std::size_t mostAgreeing = 8;

/// A way that takes so much more effort than the easiest to the same grip is left out.
constexpr double unlikely = 8;

/// How likely any mark is at least: editors have ways of their own, and slips of the pen.
constexpr double oddity = 0.05;

template <class Item, class Member>
void makeShares(std::vector<Item> &items, Member member)
{
    double sum = 0;
    for (const Item &item : items)
        sum += item.*member;
    for (Item &item : items)
        item.*member = sum > 0 ? item.*member / sum : 1 / static_cast<double>(items.size());
}

} // namespace

struct MarkLattice::Maker {
    Maker(const Passage &passage, const FingeringWeights &weights)
        : weights(weights), ringing(passage, weights.longestRing),
          change(passage, ringing, weights), finder(passage, ringing, weights), pedals(passage)
    {
    }

    /// The effort of coming to a grip from one of the event in front.
    double cost(std::size_t from, const GripFinder::Found &found) const
    {
        return costs[from] + change.cost(departures[from], found.grip)
            + static_cast<double>(found.grip.cost);
    }

    double costOfStart(const Grip &grip) const
    {
        auto cost = static_cast<double>(grip.cost);
        addPresses(grip, grip.stopCount,
                   [&](Weight weight, float amount) { cost += weights.*weight * amount; });
        return cost;
    }

    const FingeringWeights &weights;
    Ringing ringing;
    GripChange change;
    GripFinder finder;
    Pedals pedals;
    std::vector<Grip> grips; ///< of the event in front
    std::vector<double> costs;
    std::vector<GripChange::Departure> departures;
};

MarkLattice::MarkLattice(const FingeredPiece &piece, const FingeringWeights &weights,
                         const std::vector<Weight> &fitted)
    : _fitted(fitted), _passage(passageOf(piece, _noteOf))
{
    _marks.resize(_passage.notes.size());
    for (std::size_t i = 0; i < piece.notes.size(); ++i) {
        if (piece.notes[i].string >= 0)
            _marks[_noteOf[i]].strings.push_back(piece.notes[i].string);
        if (piece.notes[i].finger >= 0)
            _marks[_noteOf[i]].fingers.push_back(piece.notes[i].finger);
    }
    _layers.emplace_back();
    _layers.back().nodes.emplace_back();
    Maker maker(_passage, weights);
    for (std::size_t event = 0; event < _passage.events.size(); ++event)
        addLayer(maker, event);
}

/// The marks of an event that a grip agrees with, as bits in the order of its notes.
std::uint64_t MarkLattice::agreement(const Grip &grip, std::size_t event) const
{
    const PassageEvent &at = _passage.events[event];
    std::vector<int> stringOf(at.noteCount, -1);
    for (unsigned bits = grip.fresh(); bits != 0; bits &= bits - 1) {
        const int string = __builtin_ctz(bits);
        stringOf[grip.note[static_cast<std::size_t>(string)] - at.firstNote] = string;
    }
    std::uint64_t agrees = 0;
    std::uint64_t bit = 1;
    for (std::size_t i = 0; i < at.noteCount; ++i) {
        const int string = stringOf[i];
        const Marks &marks = _marks[at.firstNote + i];
        for (const int mark : marks.strings) {
            agrees |= mark == string ? bit : 0;
            bit <<= 1;
        }
        for (const int mark : marks.fingers) {
            agrees |=
                string >= 0 && mark == grip.finger[static_cast<std::size_t>(string)] ? bit : 0;
            bit <<= 1;
        }
    }
    return agrees;
}

/// The easiest grips of an event, the easiest first, and some that agree with all of its marks.
std::vector<MarkLattice::Candidate>
MarkLattice::candidates(const Maker &maker, const std::vector<GripFinder::Found> &found,
                        std::size_t event) const
{
    std::vector<Candidate> all;
    for (std::size_t number = 0; number < found.size(); ++number) {
        double least = std::numeric_limits<double>::infinity();
        std::size_t easiest = 0;
        if (event == 0)
            least = maker.costOfStart(found[number].grip);
        else
            for (auto bits = found[number].origins; bits != 0; bits &= bits - 1) {
                const auto from = static_cast<std::size_t>(__builtin_ctzll(bits));
                const double cost = maker.cost(from, found[number]);
                if (cost >= least)
                    continue;
                least = cost;
                easiest = from;
            }
        all.push_back({least, number, easiest, agreement(found[number].grip, event)});
    }
    std::stable_sort(all.begin(), all.end(), [](const Candidate &left, const Candidate &right) {
        return left.cost < right.cost;
    });
    const std::uint64_t every = (std::uint64_t{1} << _layers.back().markCount) - 1;
    std::vector<Candidate> kept;
    std::size_t agreeing = 0;
    for (const Candidate &one : all) {
        if (kept.size() >= mostGrips && (one.agrees != every || agreeing >= mostAgreeing))
            continue;
        agreeing += one.agrees == every ? 1 : 0;
        kept.push_back(one);
    }
    return kept;
}

void MarkLattice::addLayer(Maker &maker, std::size_t event)
{
    _layers.emplace_back();
    Layer &layer = _layers.back();
    const PassageEvent &at = _passage.events[event];
    for (std::size_t i = 0; i < at.noteCount; ++i)
        layer.markCount +=
            _marks[at.firstNote + i].strings.size() + _marks[at.firstNote + i].fingers.size();

    const auto &found = maker.finder.find(event, maker.grips);
    maker.departures.clear();
    for (const Grip &grip : maker.grips)
        maker.departures.push_back(
            maker.change.leave(grip, _passage.events[event - 1].onset, at.onset));
    const auto addTerm = [this](Weight weight, float amount) {
        const auto place = std::find(_fitted.begin(), _fitted.end(), weight);
        if (amount != 0 && place != _fitted.end())
            _terms.push_back({static_cast<std::uint32_t>(place - _fitted.begin()), amount});
    };
    std::vector<Grip> grips;
    std::vector<double> costs;
    for (const Candidate &candidate : candidates(maker, found, event)) {
        const GripFinder::Found &one = found[candidate.number];
        const auto to = static_cast<int>(layer.nodes.size());
        Node node;
        node.agrees = candidate.agrees;
        node.fixedCost = static_cast<double>(one.grip.cost);
        node.terms.first = _terms.size();
        addEffort(one.grip, _passage, maker.pedals, [&](Weight weight, float amount) {
            addTerm(weight, amount);
            node.fixedCost -= maker.weights.*weight * amount;
        });
        node.terms.end = _terms.size();
        layer.nodes.push_back(node);
        const auto addArc = [&](int from, auto &&addTerms) {
            Arc arc{from, to, {_terms.size(), 0}};
            addTerms();
            arc.terms.end = _terms.size();
            layer.arcs.push_back(arc);
        };
        if (event == 0)
            addArc(0, [&] { addPresses(one.grip, one.grip.stopCount, addTerm); });
        else
            for (auto bits = one.origins; bits != 0; bits &= bits - 1) {
                const auto from = static_cast<std::size_t>(__builtin_ctzll(bits));
                if (maker.cost(from, one) <= candidate.cost + unlikely)
                    addArc(static_cast<int>(from), [&] {
                        maker.change.addEffort(maker.departures[from], one.grip, addTerm);
                    });
            }
        grips.push_back(one.grip);
        maker.change.follow(event > 0 ? &maker.grips[candidate.from] : nullptr, event,
                            grips.back());
        costs.push_back(candidate.cost);
    }
    const double least = costs.front();
    for (double &cost : costs)
        cost -= least;
    maker.grips = std::move(grips);
    maker.costs = std::move(costs);
}

double MarkLattice::cost(Terms terms, const std::vector<double> &weights) const
{
    double cost = 0;
    for (std::size_t i = terms.first; i < terms.end; ++i)
        cost += weights[_terms[i].weight] * static_cast<double>(_terms[i].amount);
    return cost;
}

void MarkLattice::weigh(const std::vector<double> &weights)
{
    std::vector<double> costs;
    for (Layer &layer : _layers) {
        costs.clear();
        for (const Node &node : layer.nodes)
            costs.push_back(node.fixedCost + cost(node.terms, weights));
        double least = std::numeric_limits<double>::infinity();
        for (Arc &arc : layer.arcs) {
            arc.likelihood = costs[static_cast<std::size_t>(arc.to)] + cost(arc.terms, weights);
            least = std::min(least, arc.likelihood);
        }
        for (Arc &arc : layer.arcs)
            arc.likelihood = std::exp(least - arc.likelihood);
    }
}

void MarkLattice::goForward()
{
    _layers.front().nodes.front().ahead = 1;
    for (std::size_t at = 1; at < _layers.size(); ++at) {
        Layer &layer = _layers[at];
        for (Node &node : layer.nodes)
            node.ahead = 0;
        for (const Arc &arc : layer.arcs)
            layer.nodes[static_cast<std::size_t>(arc.to)].ahead +=
                _layers[at - 1].nodes[static_cast<std::size_t>(arc.from)].ahead * arc.likelihood;
        makeShares(layer.nodes, &Node::ahead);
    }
}

void MarkLattice::goBack()
{
    for (Node &node : _layers.back().nodes)
        node.behind = 1;
    for (std::size_t at = _layers.size() - 1; at > 0; --at) {
        Layer &front = _layers[at - 1];
        for (Node &node : front.nodes)
            node.behind = 0;
        for (const Arc &arc : _layers[at].arcs)
            front.nodes[static_cast<std::size_t>(arc.from)].behind +=
                _layers[at].nodes[static_cast<std::size_t>(arc.to)].behind * arc.likelihood;
        makeShares(front.nodes, &Node::behind);
    }
}

/// How likely each node is over all ways.
std::vector<double> MarkLattice::likelihoods(const Layer &layer)
{
    std::vector<double> likely;
    double sum = 0;
    for (const Node &node : layer.nodes) {
        likely.push_back(node.ahead * node.behind);
        sum += likely.back();
    }
    for (double &share : likely)
        share = sum > 0 ? share / sum : 1 / static_cast<double>(likely.size());
    return likely;
}

/// What a node is worth: by how much the marks that it agrees with get likelier with it.
void MarkLattice::reward(Layer &layer)
{
    for (Node &node : layer.nodes)
        node.reward = 0;
    const std::vector<double> likely = likelihoods(layer);
    for (std::size_t mark = 0; mark < layer.markCount; ++mark) {
        double likelihood = 0;
        for (std::size_t i = 0; i < likely.size(); ++i)
            likelihood += (layer.nodes[i].agrees >> mark & 1) != 0 ? likely[i] : 0;
        for (Node &node : layer.nodes)
            node.reward += (node.agrees >> mark & 1) != 0 ? 1 / (likelihood + oddity) : 0;
    }
}

/// What the ways up to each node and those behind it are worth on average.
void MarkLattice::expectRewards()
{
    std::vector<double> mass;
    const auto divide = [&mass](Layer &layer, double Node::*sum) {
        for (std::size_t i = 0; i < mass.size(); ++i)
            layer.nodes[i].*sum = mass[i] > 0 ? layer.nodes[i].*sum / mass[i] : 0;
    };
    for (std::size_t at = 1; at < _layers.size(); ++at) {
        Layer &layer = _layers[at];
        mass.assign(layer.nodes.size(), 0);
        for (Node &node : layer.nodes)
            node.rewardAhead = 0;
        for (const Arc &arc : layer.arcs) {
            const Node &from = _layers[at - 1].nodes[static_cast<std::size_t>(arc.from)];
            const double likely = from.ahead * arc.likelihood;
            mass[static_cast<std::size_t>(arc.to)] += likely;
            layer.nodes[static_cast<std::size_t>(arc.to)].rewardAhead += likely * from.rewardAhead;
        }
        divide(layer, &Node::rewardAhead);
        for (Node &node : layer.nodes)
            node.rewardAhead += node.reward;
    }
    for (Node &node : _layers.back().nodes)
        node.rewardBehind = 0;
    for (std::size_t at = _layers.size() - 1; at > 0; --at) {
        Layer &front = _layers[at - 1];
        mass.assign(front.nodes.size(), 0);
        for (Node &node : front.nodes)
            node.rewardBehind = 0;
        for (const Arc &arc : _layers[at].arcs) {
            const Node &to = _layers[at].nodes[static_cast<std::size_t>(arc.to)];
            const double likely = to.behind * arc.likelihood;
            mass[static_cast<std::size_t>(arc.from)] += likely;
            front.nodes[static_cast<std::size_t>(arc.from)].rewardBehind +=
                likely * (to.reward + to.rewardBehind);
        }
        divide(front, &Node::rewardBehind);
    }
}

void MarkLattice::addGradient(const FingeringWeights &weights, std::vector<double> &gradient)
{
    std::vector<double> values;
    for (const Weight weight : _fitted)
        values.push_back(weights.*weight);
    weigh(values);
    goForward();
    goBack();
    for (Layer &layer : _layers)
        reward(layer);
    expectRewards();
    const double expected = _layers.front().nodes.front().rewardBehind;

    const auto add = [&](Terms terms, double share) {
        for (std::size_t i = terms.first; i < terms.end; ++i)
            gradient[_terms[i].weight] -= share * static_cast<double>(_terms[i].amount);
    };
    for (std::size_t at = 1; at < _layers.size(); ++at) {
        const Layer &layer = _layers[at];
        const auto likely = [&](const Arc &arc) {
            return _layers[at - 1].nodes[static_cast<std::size_t>(arc.from)].ahead * arc.likelihood
                * layer.nodes[static_cast<std::size_t>(arc.to)].behind;
        };
        double sum = 0;
        for (const Arc &arc : layer.arcs)
            sum += likely(arc);
        if (sum <= 0)
            continue;
        for (const Arc &arc : layer.arcs) {
            const Node &from = _layers[at - 1].nodes[static_cast<std::size_t>(arc.from)];
            const Node &to = layer.nodes[static_cast<std::size_t>(arc.to)];
            const double share =
                likely(arc) / sum * (from.rewardAhead + to.reward + to.rewardBehind - expected);
            add(arc.terms, share);
            add(to.terms, share);
        }
    }
}
