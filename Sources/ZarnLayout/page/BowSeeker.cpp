// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/BowSeeker.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace zarn::engraving {

namespace {

/// A way to bend a slur: how far its ends go away from where they would like to be, and how much
/// higher it bows at each.
struct Bending {
    double from;
    double to;
    double fromRise;
    double toRise;
    double cost;
};

const std::vector<Bending> &bendings()
{
    static const std::vector<Bending> all = [] {
        std::vector<Bending> ways;
        for (const double from : {0.0, 0.4, 0.9, 1.6, 2.4, 3.4})
            for (const double to : {0.0, 0.4, 0.9, 1.6, 2.4, 3.4})
                for (const double fromRise : {0.0, 0.6, 1.3, 2.2, 3.4, -0.4})
                    for (const double toRise : {0.0, 0.6, 1.3, 2.2, 3.4, -0.4})
                        ways.push_back({from, to, fromRise, toRise,
                                        0.5 * (from + to) + 0.25 * std::abs(fromRise + toRise)
                                            + 0.35 * std::abs(fromRise - toRise)
                                            + 0.2 * std::abs(from - to)});
        std::stable_sort(ways.begin(), ways.end(), [](const Bending &left, const Bending &right) {
            return left.cost < right.cost;
        });
        return ways;
    }();
    return all;
}

/// A way to lay a short curve.
struct BowTry {
    double shift;  ///< of both ends away from the head
    double height; ///< as a part of the usual one
    double late;   ///< how far to the right of its head it begins
    double early;  ///< how far to the left of its head it ends
    double cost;
};

std::vector<BowTry> byCost(std::vector<BowTry> tries)
{
    std::stable_sort(tries.begin(), tries.end(), [](const BowTry &left, const BowTry &right) {
        return left.cost < right.cost;
    });
    return tries;
}

/// What it costs to lie away from the head and to bow higher than usual: far away, more than stems
/// that are crossed, since there a curve no longer shows what it belongs to.
double costOf(double shift, double height)
{
    const double higher = std::max(0.0, height - 1);
    const double flatter = std::max(0.0, 1 - height);
    return 1.2 * std::abs(shift) + 3 * shift * shift + 0.5 * higher + higher * higher
        + 1.6 * flatter;
}

/// The least of the costs of tries, of the ink that they would lie on, and once more, as
/// `solidCost` says, of what none may cross.
Bow bestOf(const std::vector<BowTry> &tries, const BowEnds &wish, const InkField &field,
           const InkField &solid, double solidCost)
{
    constexpr double narrowest = 0.6;
    constexpr double inkCost = 60;
    Bow best;
    double least = 1e9;
    for (const int side : {wish.side, -wish.side}) {
        const double turned = side == wish.side ? 0 : 0.4;
        Point from = wish.from[side > 0];
        Point to = wish.to[side > 0];
        if (wish.isLevel)
            from.y = to.y = side > 0 ? std::min(from.y, to.y) : std::max(from.y, to.y);
        to.x = std::max(to.x, from.x + narrowest);
        const double height = std::clamp(0.3 + 0.05 * (to.x - from.x), 0.35, 1.1);
        for (const BowTry &way : tries) {
            if (way.cost + turned >= least)
                break;
            const double cut = way.late + way.early;
            if (cut > 0 && to.x - from.x - cut < narrowest)
                continue;
            const double away = side * way.shift;
            const Bow bow =
                Bow::arched({from.x + way.late, from.y - away}, {to.x - way.early, to.y - away},
                            side * height * way.height);
            const double bare = way.cost + turned;
            double cost = bare + inkCost * field.coveredBy(bow, 0.06, (least - bare) / inkCost);
            if (cost < least && cost > bare && solidCost > 0)
                cost += solidCost * solid.coveredBy(bow, 0.06, (least - cost) / solidCost);
            if (cost < least) {
                least = cost;
                best = bow;
            }
        }
    }
    return best;
}

} // namespace

bool CurveField::hidesInk(const Bow &bow)
{
    constexpr double touch = 0.01;
    return _all.now().coveredBy(bow, 0) > touch && _solid.now().coveredBy(bow, 0) > touch;
}

Bow leastInked(const Bow &wish, double sign, const InkField &field)
{
    constexpr double margin = 0.08;
    constexpr double areaCost = 25;
    constexpr double tallCost = 1.5; ///< of what a curve is higher than wide
    Bow best = wish;
    double least = 1e9;
    for (const Bending &way : bendings()) {
        if (way.cost >= least)
            break;
        Bow bow = wish;
        bow.from.y -= sign * way.from;
        bow.to.y -= sign * way.to;
        bow.fromRise += sign * way.fromRise;
        bow.toRise += sign * way.toRise;
        // Rather on a little ink than a tall loop.
        const double height = std::max(std::abs(bow.fromRise), std::abs(bow.toRise)) * 3 / 4;
        const double tall = std::max(0.0, height - (bow.to.x - bow.from.x));
        const double bare = way.cost + tallCost * tall;
        const double cost =
            bare + areaCost * field.coveredBy(bow, margin, (least - bare) / areaCost);
        if (cost < least) {
            least = cost;
            best = bow;
        }
    }
    return best;
}

Bow CurveField::nearest(const BowEnds &wish)
{
    static const std::vector<BowTry> tries = [] {
        std::vector<BowTry> all;
        for (const double shift : {0.0, -0.15, 0.15, -0.3, 0.3, -0.45, 0.5, 0.75, 1.0, 1.3})
            for (const double height : {1.0, 0.75, 0.5, 0.25, 1.3, 1.7, 2.2, 2.8})
                all.push_back({shift, height, 0, 0, costOf(shift, height)});
        return byCost(std::move(all));
    }();
    constexpr double solidCost = 240; // it weighs more than being far away
    return bestOf(tries, wish, all(), _solid.now(), solidCost);
}

Bow CurveField::afar(const BowEnds &wish)
{
    static const std::vector<BowTry> tries = [] {
        std::vector<BowTry> all;
        for (const double shift :
             {0.0, -0.15, 0.15, -0.3, 0.3, -0.45, 0.5, 0.75, 1.0, 1.3, 1.7, 2.2, 2.8, 3.5})
            for (const double height : {1.0, 0.75, 0.5, 0.25, 0.0, 1.3, 1.7, 2.2, 2.8, 3.6, 4.6})
                for (const double late : {0.0, 0.3, 0.7, 1.2, 1.8})
                    for (const double early : {0.0, 0.3, 0.7, 1.2, 1.8})
                        all.push_back(
                            {shift, height, late, early,
                             1.2 * std::abs(shift) + 0.5 * std::abs(height - 1) + late + early});
        return byCost(std::move(all));
    }();
    return bestOf(tries, wish, all(), all(), 0);
}

Bow CurveField::freest(const BowEnds &wish)
{
    const Bow bow = nearest(wish);
    return hidesInk(bow) ? afar(wish) : bow;
}

Bow aroundEdges(Bow bow, bool isAbove, const std::vector<double> &edges)
{
    const std::size_t count = edges.size() - 1;
    constexpr double highest = 4.0 * 4 / 3;
    const double sign = isAbove ? 1 : -1;
    for (int round = 0; round < 24; ++round) {
        double worst = 0;
        double atStart = 0;
        double atEnd = 0;
        const std::vector<Point> points = bow.samples(count);
        for (std::size_t i = 1; i < count; ++i) {
            const double need = sign * (points[i].y - edges[i]) + 0.3;
            if (need <= 0.01)
                continue;
            const double t = static_cast<double>(i) / count;
            if (t < 0.15)
                atStart = std::max(atStart, need);
            else if (t > 0.85)
                atEnd = std::max(atEnd, need);
            else
                worst = std::max(worst, need / (3 * t * (1 - t)));
        }
        if (worst == 0 && atStart == 0 && atEnd == 0)
            break;
        if (worst > 0 && std::abs(bow.fromRise) < highest) {
            bow.fromRise = sign * std::min(std::abs(bow.fromRise) + worst * 0.6, highest);
            bow.toRise = bow.fromRise;
        } else {
            // What is in the way of one end does not lift the other.
            const bool isMiddle = worst > 0;
            bow.from.y -= isMiddle || atStart > 0 ? sign * 0.35 : 0;
            bow.to.y -= isMiddle || atEnd > 0 ? sign * 0.35 : 0;
        }
    }
    return bow;
}

} // namespace zarn::engraving
