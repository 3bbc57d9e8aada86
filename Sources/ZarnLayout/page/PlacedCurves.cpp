// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/PlacedCurves.h>

#include <ZarnLayout/engrave/Bow.h>

#include <algorithm>

namespace zarn::engraving {

void PlacedCurves::add(const Ink &curve)
{
    constexpr int count = 24;
    Curve added;
    for (int i = 0; i <= count; ++i)
        added.points.push_back(
            pointOn({curve.points[0], curve.points[1], curve.points[2], curve.points[3]},
                    static_cast<double>(i) / count));
    const Point &first = added.points.front();
    const Point &last = added.points.back();
    added.isAbove = 2 * added.points[count / 2].y < first.y + last.y;
    if (first.x < last.x)
        _curves.push_back(std::move(added));
}

/// At a place that it reaches over.
double PlacedCurves::Curve::yAt(double x) const
{
    const auto next =
        std::lower_bound(points.begin() + 1, points.end() - 1, x,
                         [](const Point &point, double place) { return point.x < place; });
    const Point &before = *(next - 1);
    const double width = std::max(next->x - before.x, 1e-6);
    return before.y + (next->y - before.y) * (x - before.x) / width;
}

void PlacedCurves::addUnder(const std::vector<Point> &points, bool isAbove,
                            std::vector<double> &edges) const
{
    constexpr double reach = 0.5;    ///< of a curve that begins or ends with the other one
    constexpr double half = 0.15;    ///< of the thickness of both
    constexpr double nearEnd = 0.15; ///< in their lengths
    const auto from = static_cast<std::size_t>(nearEnd * static_cast<double>(points.size()));
    for (const Curve &curve : _curves) {
        const double left = curve.points.front().x;
        const double right = curve.points.back().x;
        if (curve.isAbove != isAbove || left < points.front().x - reach
            || right > points.back().x + reach)
            continue;
        for (std::size_t i = from; i + from < points.size(); ++i) {
            if (points[i].x < left || points[i].x > right)
                continue;
            const double y = curve.yAt(points[i].x);
            edges[i] = isAbove ? std::min(edges[i], y - half) : std::max(edges[i], y + half);
        }
    }
}

} // namespace zarn::engraving
