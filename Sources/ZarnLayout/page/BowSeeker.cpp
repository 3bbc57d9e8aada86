// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/BowSeeker.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace zarn::engraving {

Bow freestBow(const BowEnds &wish, const InkField &field)
{
    struct Try {
        double shift; ///< of both ends away from the head
        double height;
        double cost;
    };
    static const std::vector<Try> tries = [] {
        std::vector<Try> all;
        for (const double shift : {0.0, -0.15, 0.15, -0.3, 0.3, -0.45, 0.5, 0.75, 1.0, 1.3})
            for (const double height : {1.0, 0.75, 0.5, 0.25, 1.3, 1.7, 2.2, 2.8})
                all.push_back({shift, height, 1.2 * std::abs(shift) + 0.5 * std::abs(height - 1)});
        std::stable_sort(all.begin(), all.end(),
                         [](const Try &left, const Try &right) { return left.cost < right.cost; });
        return all;
    }();
    Bow best;
    double least = 1e9;
    for (const int side : {wish.side, -wish.side}) {
        const double turned = side == wish.side ? 0 : 0.4;
        Point from = wish.from[side > 0];
        Point to = wish.to[side > 0];
        if (wish.isLevel)
            from.y = to.y = side > 0 ? std::min(from.y, to.y) : std::max(from.y, to.y);
        to.x = std::max(to.x, from.x + 0.6);
        const double height = std::clamp(0.3 + 0.05 * (to.x - from.x), 0.35, 1.1);
        for (const Try &way : tries) {
            if (way.cost + turned >= least)
                break;
            const double away = side * way.shift;
            const Bow bow = Bow::arched({from.x, from.y - away}, {to.x, to.y - away},
                                        side * height * way.height);
            const double cost = way.cost + turned + 60 * field.coveredBy(bow, 0.06);
            if (cost < least) {
                least = cost;
                best = bow;
            }
        }
    }
    return best;
}

} // namespace zarn::engraving
