// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/ZarnFingeringSolver.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/fingering/FingeringGraph.h>
#include <ZarnCore/fingering/GripDoubts.h>
#include <ZarnCore/fingering/GripLayerMaker.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace zarn::fingering {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

/// Events that are searched at once, and those behind them that are looked at before they are
/// settled.
constexpr std::size_t windowLength = 64;
constexpr std::size_t lookahead = 24;

/// How much an effort of 1 counts beside a note that is surely played otherwise. With less, a scale
/// may be begun in one position and ended in another, each of which is likely by itself.
constexpr double shareOfEffort = 2;

/// Events that may wait for what comes behind them to decide how they are played.
constexpr std::size_t mostUndecided = 1024;

/// Events on either side that the alternatives for one are judged with.
constexpr std::size_t surroundings = 8;

} // namespace

class FingeringSolver::Search {
public:
    Search(const Passage &passage, const FingeringWeights &weights)
        : _passage(passage), _weights(weights), _maker(_passage, _weights), _doubts(_passage)
    {
    }

    FingeringSolution solve();
    std::vector<FingeringAlternative> alternatives(std::size_t event, std::size_t most);

private:
    void addLayer(std::size_t event);
    void searchFrom(std::size_t firstNew);
    void decide();
    void decideAllBut(std::size_t count);
    void commit(std::size_t count, int grip);
    void commitGrip(std::size_t event, const Grip &grip);
    FingeringAlternative alternativeOf(const PassageEvent &event, const Grip &grip) const;
    Placement placementOf(const PassageNote &note, int string, const Grip &grip) const;
    void reportLost();

    const Passage &_passage;
    FingeringWeights _weights;
    GripLayerMaker _maker;
    FingeringGraph _graph;
    GripDoubts _doubts;
    std::vector<GripLayer> _layers; ///< those that are not decided
    std::size_t _settled = 0;       ///< of them, those whose doubts are
    FingeringSolution _result;
};

void FingeringSolver::Search::addLayer(std::size_t event)
{
    _layers.push_back(_layers.empty() ? _maker.firstLayer(event)
                                      : _maker.layerAfter(_layers.back(), event));
}

/// Finds the best ways through the layers from `firstNew` on, from those of the layer in front: the
/// least doubtful, and of these the easier ones.
void FingeringSolver::Search::searchFrom(std::size_t firstNew)
{
    _doubts.judge(_layers, firstNew);
    _graph.clear();
    for (std::size_t at = firstNew == 0 ? 0 : firstNew - 1; at < _layers.size(); ++at) {
        GripLayer &layer = _layers[at];
        const bool isStart = at == 0 || at < firstNew;
        for (std::size_t i = 0; i < layer.grips.size(); ++i) {
            const int node = _graph.addNode();
            layer.firstNode = i == 0 ? node : layer.firstNode;
            if (at < firstNew)
                _graph.addStart(node, layer.wayCosts[i]);
            else if (isStart)
                _graph.addStart(node, layer.doubts[i] + shareOfEffort * layer.costs[i]);
        }
        if (isStart)
            continue;
        for (const GripLayer::Arc &arc : layer.arcs)
            _graph.addArc(_layers[at - 1].firstNode + arc.from, layer.firstNode + arc.to,
                          layer.doubts[static_cast<std::size_t>(arc.to)]
                              + shareOfEffort * arc.cost);
    }
    _graph.searchFromStarts();
    for (std::size_t at = firstNew; at < _layers.size(); ++at) {
        GripLayer &layer = _layers[at];
        const std::size_t count = layer.grips.size();
        layer.wayCosts.resize(count);
        layer.before.assign(count, -1);
        layer.efforts.assign(count, layer.easiest);
        for (std::size_t i = 0; i < count; ++i) {
            const int node = layer.firstNode + static_cast<int>(i);
            layer.wayCosts[i] = _graph.costFromStart(node);
            const int before = at > 0 ? _graph.nodeBefore(node) : FingeringGraph::None;
            if (before != FingeringGraph::None)
                layer.before[i] = before - _layers[at - 1].firstNode;
            else
                layer.efforts[i] += layer.costs[i];
        }
        for (const GripLayer::Arc &arc : layer.arcs)
            if (const auto to = static_cast<std::size_t>(arc.to); layer.before[to] == arc.from)
                layer.efforts[to] =
                    _layers[at - 1].efforts[static_cast<std::size_t>(arc.from)] + arc.cost;
    }
}

FingeringSolution FingeringSolver::Search::solve()
{
    _result = {};
    _result.notes.resize(_passage.notes.size());
    _layers.clear();
    _settled = 0;
    _maker.keep(KeptWays::Likely);
    const std::size_t count = _passage.events.size();
    for (std::size_t event = 0; event < count;) {
        const std::size_t end = std::min(count, event + windowLength);
        for (; event < end; ++event)
            addLayer(event);
        searchFrom(_settled);
        if (event == count)
            decideAllBut(0);
        else if (_layers.size() > mostUndecided)
            decideAllBut(1);
        else
            decide();
    }
    reportLost();
    return std::move(_result);
}

/// Settles all layers but those that may still be judged otherwise, and commits those on which all
/// best ways agree.
void FingeringSolver::Search::decide()
{
    _settled = _layers.size() - std::min(lookahead, _layers.size() - 1);
    const GripLayer &last = _layers[_settled - 1];
    std::vector<char> isAlive(last.grips.size());
    for (std::size_t i = 0; i < isAlive.size(); ++i)
        isAlive[i] = last.wayCosts[i] < infinity ? 1 : 0;
    for (std::size_t at = _settled - 1; at > 0; --at) {
        std::vector<char> isAliveBefore(_layers[at - 1].grips.size());
        for (std::size_t i = 0; i < isAlive.size(); ++i)
            if (isAlive[i] != 0)
                isAliveBefore[static_cast<std::size_t>(_layers[at].before[i])] = 1;
        isAlive = std::move(isAliveBefore);
        if (std::count(isAlive.begin(), isAlive.end(), 1) == 1) {
            const auto only = std::find(isAlive.begin(), isAlive.end(), 1) - isAlive.begin();
            commit(at, static_cast<int>(only));
            _settled -= at;
            return;
        }
    }
}

/// Commits the best way of all but for so many layers at its end, none or one, of which its grip
/// alone is left.
void FingeringSolver::Search::decideAllBut(std::size_t count)
{
    GripLayer &last = _layers.back();
    const auto least = std::min_element(last.wayCosts.begin(), last.wayCosts.end());
    ZARN_ASSERT_IN("zarn::fingering::FingeringSolver::decide", *least < infinity);
    const auto best = static_cast<std::size_t>(least - last.wayCosts.begin());
    _result.effort = last.efforts[best];
    _result.leastEffort = last.easiest;
    if (count == 0) {
        commit(_layers.size(), static_cast<int>(best));
        return;
    }
    commit(_layers.size() - 1, last.before[best]);
    GripLayer &rest = _layers.back();
    rest.grips = {rest.grips[best]};
    rest.easiest += rest.costs[best];
    rest.costs = {0};
    rest.likelihoods = {1};
    rest.wayCosts = {0};
    rest.efforts = {rest.efforts[best]};
    _settled = 1;
}

/// Commits the first `count` layers: `grip` of the last of them and what leads to it.
void FingeringSolver::Search::commit(std::size_t count, int grip)
{
    for (std::size_t at = count; at-- > 0;) {
        const auto number = static_cast<std::size_t>(grip);
        commitGrip(_layers[at].event, _layers[at].grips[number]);
        grip = at > 0 ? _layers[at].before[number] : 0;
    }
    _layers.erase(_layers.begin(), _layers.begin() + static_cast<std::ptrdiff_t>(count));
}

Placement FingeringSolver::Search::placementOf(const PassageNote &note, int string,
                                               const Grip &grip) const
{
    const bool isGiven = note.string == string && note.fret != PassageNote::Free;
    return {string, isGiven ? note.fret : _passage.fretboard.fret(string, note.pitch),
            grip.finger[static_cast<std::size_t>(string)]};
}

void FingeringSolver::Search::commitGrip(std::size_t event, const Grip &grip)
{
    for (int string = 0; string < Grip::Strings; ++string) {
        if (!grip.sounds(string) || grip.isHeld(string))
            continue;
        const std::size_t number = grip.note[static_cast<std::size_t>(string)];
        _result.notes[number] = placementOf(_passage.notes[number], string, grip);
    }
    if (!grip.isTooWide)
        return;
    std::size_t note = _passage.events[event].firstNote;
    const std::size_t end = note + _passage.events[event].noteCount;
    const auto isFixed = [this](std::size_t at) {
        return _passage.notes[at].string != PassageNote::Free;
    };
    while (note + 1 < end && isFixed(note))
        ++note;
    _result.problems.push_back({FingeringProblem::Kind::TooWide, note});
}

/// Adds the notes that found no place, and puts all problems in order.
void FingeringSolver::Search::reportLost()
{
    using Kind = FingeringProblem::Kind;
    for (std::size_t i = 0; i < _result.notes.size(); ++i) {
        if (_result.notes[i].string != Placement::None)
            continue;
        const bool isThere = _maker.finder().isOnInstrument(_passage.notes[i]);
        _result.problems.push_back({isThere ? Kind::NoStringLeft : Kind::NotOnInstrument, i});
    }
    std::stable_sort(_result.problems.begin(), _result.problems.end(),
                     [](const auto &left, const auto &right) { return left.note < right.note; });
}

FingeringAlternative FingeringSolver::Search::alternativeOf(const PassageEvent &event,
                                                            const Grip &grip) const
{
    FingeringAlternative alternative;
    alternative.notes.resize(event.noteCount);
    for (int string = 0; string < Grip::Strings; ++string) {
        if (!grip.sounds(string) || grip.isHeld(string))
            continue;
        const std::size_t number = grip.note[static_cast<std::size_t>(string)];
        alternative.notes[number - event.firstNote] =
            placementOf(_passage.notes[number], string, grip);
    }
    return alternative;
}

std::vector<FingeringAlternative> FingeringSolver::Search::alternatives(std::size_t event,
                                                                        std::size_t most)
{
    ZARN_ASSERT_IN("zarn::fingering::FingeringSolver::alternatives",
                   event < _passage.events.size());
    _layers.clear();
    const std::size_t first = event - std::min(event, surroundings);
    const std::size_t end = std::min(_passage.events.size(), event + surroundings + 1);
    for (std::size_t at = first; at < end; ++at) {
        _maker.keep(KeptWays::All,
                    at == event ? GripFinder::MostOrigins : GripLayerMaker::MostGrips);
        addLayer(at);
    }
    _settled = 0;
    searchFrom(0);
    for (std::size_t i = 0; i < _layers.back().grips.size(); ++i)
        _graph.addEnd(_layers.back().firstNode + static_cast<int>(i));
    _graph.searchToEnds();

    const GripLayer &layer = _layers[event - first];
    std::vector<std::pair<double, std::size_t>> order;
    for (std::size_t i = 0; i < layer.grips.size(); ++i) {
        const double cost =
            layer.wayCosts[i] + _graph.costToEnd(layer.firstNode + static_cast<int>(i));
        if (cost < infinity && !layer.grips[i].isTooWide)
            order.emplace_back(cost, i);
    }
    std::sort(order.begin(), order.end());
    std::vector<FingeringAlternative> found;
    for (const auto &[cost, number] : order) {
        if (found.size() == most)
            break;
        FingeringAlternative alternative =
            alternativeOf(_passage.events[event], layer.grips[number]);
        alternative.loss = cost - order.front().first;
        const auto isSame = [&alternative](const FingeringAlternative &other) {
            return std::equal(other.notes.begin(), other.notes.end(), alternative.notes.begin(),
                              [](const Placement &left, const Placement &right) {
                                  return left.string == right.string;
                              });
        };
        if (std::none_of(found.begin(), found.end(), isSame))
            found.push_back(std::move(alternative));
    }
    return found;
}

FingeringSolver::FingeringSolver(const Passage &passage, const FingeringWeights &weights)
    : _search(std::make_unique<Search>(passage, weights))
{
}
FingeringSolver::~FingeringSolver() = default;

FingeringSolution FingeringSolver::solve()
{
    return _search->solve();
}

std::vector<FingeringAlternative> FingeringSolver::alternatives(std::size_t event, std::size_t most)
{
    return _search->alternatives(event, most);
}

} // namespace zarn::fingering
