// SPDX-License-Identifier: MIT
#pragma once

#include "support/FingeredPieces.h"

#include <ZarnCore/fingering/Grip.h>
#include <ZarnCore/fingering/GripChange.h>
#include <ZarnCore/fingering/GripFinder.h>
#include <ZarnCore/fingering/Pedals.h>
#include <ZarnCore/fingering/Ringing.h>

#include <cstdint>
#include <vector>

using Weight = double zarn::fingering::FingeringWeights::*;

/// The likely ways to play a piece, with what is hard about each, and the marks that its editor
/// wrote. A way is the likelier the less effort it takes, by e for each unit: so weights make marks
/// likely or unlikely, and tell by which change they would make them likelier.
class MarkLattice {
public:
    /// Ways that are easy under some weights, and those that agree with the marks.
    MarkLattice(const FingeredPiece &piece, const zarn::fingering::FingeringWeights &weights,
                const std::vector<Weight> &fitted);

    /// Adds to `gradient`, by fitted weight, how the logarithm of how likely the marks are grows
    /// with each.
    void addGradient(const zarn::fingering::FingeringWeights &weights,
                     std::vector<double> &gradient);

private:
    struct Term {
        std::uint32_t weight; ///< its number
        float amount;
    };

    /// Places in `_terms`.
    struct Terms {
        std::size_t first = 0;
        std::size_t end = 0;
    };

    struct Node {
        std::uint64_t agrees = 0; ///< bits by mark of the layer
        double fixedCost = 0;
        Terms terms;
        double ahead = 0;  ///< how likely what leads to it is, as share
        double behind = 0; ///< how likely what follows is, as share
        double reward = 0;
        double rewardAhead = 0;  ///< expected up to it, its own among it
        double rewardBehind = 0; ///< expected behind it
    };

    struct Arc {
        int from;
        int to;
        Terms terms;
        double likelihood = 1; ///< beside the other arcs of the layer
    };

    /// An event; in front of the first is a layer of one node.
    struct Layer {
        std::vector<Node> nodes;
        std::vector<Arc> arcs;
        std::size_t markCount = 0;
    };

    struct Candidate {
        double cost;
        std::size_t number;
        std::size_t from; ///< the grip in front on the easiest way
        std::uint64_t agrees;
    };

    /// What is made of one event for the next.
    struct Maker;

    void addLayer(Maker &maker, std::size_t event);
    std::vector<Candidate> candidates(const Maker &maker,
                                      const std::vector<zarn::fingering::GripFinder::Found> &found,
                                      std::size_t event) const;
    std::uint64_t agreement(const zarn::fingering::Grip &grip, std::size_t event) const;

    void weigh(const std::vector<double> &weights);
    double cost(Terms terms, const std::vector<double> &weights) const;
    void goForward();
    void goBack();
    static std::vector<double> likelihoods(const Layer &layer);
    static void reward(Layer &layer);
    void expectRewards();

    struct Marks {
        std::vector<int> strings;
        std::vector<int> fingers;
    };

    const std::vector<Weight> &_fitted;
    std::vector<std::size_t> _noteOf; ///< by note of the piece, that of the passage
    zarn::fingering::Passage _passage;
    std::vector<Marks> _marks; ///< by note of the passage
    std::vector<Layer> _layers;
    std::vector<Term> _terms;
};
