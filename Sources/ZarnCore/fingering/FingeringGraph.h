// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace zarn::fingering {

/// A directed graph of grips, with the effort of each and of going from one to the next, and the
/// easiest ways through it.
class FingeringGraph {
public:
    static constexpr int None = -1;

    FingeringGraph();
    ~FingeringGraph();

    /// Takes all nodes out; keeps the memory.
    void clear();

    /// Adds a grip and answers its number; they count up from 0.
    int addNode();

    /// Makes a grip one to begin with, after an effort.
    void addStart(int node, double cost);

    /// Makes a grip one to end with.
    void addEnd(int node);

    /// `cost` is at least 0.
    void addArc(int from, int to, double cost);

    /// Finds the easiest ways from the starts, or to the ends.
    void searchFromStarts();
    void searchToEnds();

    /// After `searchFromStarts`: the effort of reaching a grip, infinite when nothing leads there,
    /// and the grip in front of it; `None` for a start.
    double costFromStart(int node) const;
    int nodeBefore(int node) const;

    /// After `searchToEnds`: the effort of going on from a grip to an end.
    double costToEnd(int node) const;

private:
    struct Impl;
    std::unique_ptr<Impl> _impl;
};

} // namespace zarn::fingering
