// SPDX-License-Identifier: MIT
#include "WeightFit.h"

#include "MarkLattice.h"

#include <algorithm>
#include <cmath>

using namespace zarn::fingering;
using W = FingeringWeights;

namespace {

/// How often the ways are looked for anew with what was fitted to the last ones. Without that, a
/// fit never hears of the wrong ways that only its own weights lead to.
constexpr int rounds = 3;

/// Steps of a round; the mean of the last ones, which are small, is what it finds.
constexpr int steps = 28;
constexpr int smallSteps = 16;
constexpr double step = 0.09;
constexpr double smallStep = 0.03;

/// How hard a weight is drawn back to its guess. Marks of works that a fit does not know are
/// likeliest with 20 to 100; with less it learns the editors that it sees by heart.
constexpr double draw = 30;

/// Goes up a gradient, each weight at a pace of its own (Adam, Kingma and Ba 2015).
class Climber {
public:
    explicit Climber(std::size_t count) : _means(count, 0), _squares(count, 0) { }

    void climb(std::vector<double> &values, const std::vector<double> &gradient, double pace)
    {
        constexpr double keptMean = 0.9;
        constexpr double keptSquare = 0.99;
        ++_steps;
        for (std::size_t i = 0; i < values.size(); ++i) {
            _means[i] = keptMean * _means[i] + (1 - keptMean) * gradient[i];
            _squares[i] = keptSquare * _squares[i] + (1 - keptSquare) * gradient[i] * gradient[i];
            const double mean = _means[i] / (1 - std::pow(keptMean, _steps));
            const double square = _squares[i] / (1 - std::pow(keptSquare, _steps));
            values[i] = std::max(0., values[i] + pace * mean / (std::sqrt(square) + 1e-8));
        }
    }

private:
    std::vector<double> _means;
    std::vector<double> _squares;
    int _steps = 0;
};

FingeringWeights weightsOf(const std::vector<double> &values)
{
    FingeringWeights weights;
    for (std::size_t i = 0; i < values.size(); ++i)
        weights.*fittedWeights()[i].weight = values[i];
    return weights;
}

/// One round: from some weights to better ones, over the ways that are likely under the former.
std::vector<double> fitted(const std::vector<FingeredPiece> &pieces, std::vector<double> values)
{
    std::vector<Weight> weights;
    for (const FittedWeight &one : fittedWeights())
        weights.push_back(one.weight);
    std::vector<MarkLattice> lattices;
    lattices.reserve(pieces.size());
    for (const FingeredPiece &piece : pieces)
        lattices.emplace_back(piece, weightsOf(values), weights);
    Climber climber(values.size());
    std::vector<double> means(values.size(), 0);
    for (int at = 0; at < steps + smallSteps; ++at) {
        const bool isSmall = at >= steps;
        std::vector<double> gradient(values.size());
        for (std::size_t i = 0; i < values.size(); ++i)
            gradient[i] = draw * (fittedWeights()[i].guess - values[i]);
        for (MarkLattice &lattice : lattices)
            lattice.addGradient(weightsOf(values), gradient);
        climber.climb(values, gradient, isSmall ? smallStep : step);
        for (std::size_t i = 0; isSmall && i < values.size(); ++i)
            means[i] += values[i] / smallSteps;
    }
    return means;
}

} // namespace

const std::vector<FittedWeight> &fittedWeights()
{
    static const std::vector<FittedWeight> weights = {
        {"shape", &W::shape, 0.5},
        {"index", &W::index, 0.1},
        {"middle", &W::middle, 0.4},
        {"ring", &W::ring, 0.6},
        {"little", &W::little, 0.6},
        {"ringAtNut", &W::ringAtNut, 0.5},
        {"fingerAcross", &W::fingerAcross, 0.3},
        {"creep", &W::creep, 0.5},
        {"shiftStart", &W::shiftStart, 0.2},
        {"shift", &W::shift, 0.1},
        {"hurriedCreep", &W::hurriedCreep, 0.4},
        {"hurriedStart", &W::hurriedStart, 0.3},
        {"hurriedShift", &W::hurriedShift, 0.2},
        {"blindShift", &W::blindShift, 0.3},
        {"exchange", &W::exchange, 0.5},
        {"fingerJump", &W::fingerJump, 1},
        {"fingerRoll", &W::fingerRoll, 0.6},
        {"hurriedJump", &W::hurriedJump, 0.3},
        {"hurriedRoll", &W::hurriedRoll, 0.3},
        {"fingerReplaced", &W::fingerReplaced, 1.2},
        {"height", &W::height, 0.03},
        {"highHand", &W::highHand, 0.04},
        {"leftHome", &W::leftHome, 0.15},
        {"chordHeight", &W::chordHeight, 0.15},
        {"overBody", &W::overBody, 0.4},
        {"openTreble", &W::openTreble, 0.7},
        {"openAbove", &W::openAbove, 0.7},
        {"openInChord", &W::openInChord, 0.8},
        {"skippedString", &W::skippedString, 0.7},
        {"cutNote", &W::cutNote, 0.9},
        {"cutRinging", &W::cutRinging, 0.6},
        {"cutBroken", &W::cutBroken, 0.5},
        {"crossedStep", &W::crossedStep, 0.3},
        {"movedPitch", &W::movedPitch, 0.3},
        {"movedPluck", &W::movedPluck, 0.5},
    };
    return weights;
}

FingeringWeights fitWeights(const std::vector<FingeredPiece> &pieces)
{
    std::vector<double> values;
    for (const FittedWeight &one : fittedWeights())
        values.push_back(one.guess);
    for (int round = 0; round < rounds; ++round) {
        // Rounds swing between ways: the middle is the safer ground.
        const std::vector<double> found = fitted(pieces, values);
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = round == 0 ? found[i] : (values[i] + found[i]) / 2;
    }
    return weightsOf(values);
}
