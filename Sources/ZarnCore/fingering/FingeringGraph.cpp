// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/FingeringGraph.h>

#include <lemon/adaptors.h>
#include <lemon/dijkstra.h>
#include <lemon/list_graph.h>

#include <limits>

namespace zarn::fingering {

using Digraph = lemon::ListDigraph;
using Costs = Digraph::ArcMap<double>;

struct FingeringGraph::Impl {
    Digraph graph;
    Costs costs{graph};

    // Beside the grips stand two nodes: one in front of the starts and one behind the ends.
    Digraph::Node start = graph.addNode();
    Digraph::Node end = graph.addNode();

    lemon::Dijkstra<Digraph, Costs> fromStarts{graph, costs};
    const lemon::ReverseDigraph<Digraph> reversed{graph};
    lemon::Dijkstra<lemon::ReverseDigraph<Digraph>, Costs> toEnds{reversed, costs};

    static constexpr int extraNodes = 2;

    Digraph::Node node(int number) const { return Digraph::nodeFromId(number + extraNodes); }
    int number(Digraph::Node node) const { return Digraph::id(node) - extraNodes; }

    void addArc(Digraph::Node from, Digraph::Node to, double cost)
    {
        costs.set(graph.addArc(from, to), cost);
    }
};

FingeringGraph::FingeringGraph() : _impl(std::make_unique<Impl>()) { }
FingeringGraph::~FingeringGraph() = default;

void FingeringGraph::clear()
{
    _impl->graph.clear();
    _impl->start = _impl->graph.addNode();
    _impl->end = _impl->graph.addNode();
}

int FingeringGraph::addNode()
{
    return _impl->number(_impl->graph.addNode());
}

void FingeringGraph::addStart(int node, double cost)
{
    _impl->addArc(_impl->start, _impl->node(node), cost);
}

void FingeringGraph::addEnd(int node)
{
    _impl->addArc(_impl->node(node), _impl->end, 0);
}

void FingeringGraph::addArc(int from, int to, double cost)
{
    _impl->addArc(_impl->node(from), _impl->node(to), cost);
}

void FingeringGraph::searchFromStarts()
{
    _impl->fromStarts.run(_impl->start);
}

void FingeringGraph::searchToEnds()
{
    _impl->toEnds.run(_impl->end);
}

double FingeringGraph::costFromStart(int node) const
{
    const auto at = _impl->node(node);
    return _impl->fromStarts.reached(at) ? _impl->fromStarts.dist(at)
                                         : std::numeric_limits<double>::infinity();
}

int FingeringGraph::nodeBefore(int node) const
{
    const auto before = _impl->fromStarts.predNode(_impl->node(node));
    return before == lemon::INVALID || before == _impl->start ? None : _impl->number(before);
}

double FingeringGraph::costToEnd(int node) const
{
    const auto at = _impl->node(node);
    return _impl->toEnds.reached(at) ? _impl->toEnds.dist(at)
                                     : std::numeric_limits<double>::infinity();
}

} // namespace zarn::fingering
