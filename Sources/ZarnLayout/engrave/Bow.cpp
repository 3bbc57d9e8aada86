// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/Bow.h>

#include <algorithm>
#include <cmath>

namespace zarn::engraving {

Point pointOn(const std::array<Point, 4> &handles, double t) noexcept
{
    const double u = 1 - t;
    const std::array<double, 4> part = {u * u * u, 3 * u * u * t, 3 * u * t * t, t * t * t};
    Point point;
    for (std::size_t k = 0; k < 4; ++k) {
        point.x += part[k] * handles[k].x;
        point.y += part[k] * handles[k].y;
    }
    return point;
}

double Bow::length() const noexcept
{
    return std::hypot(to.x - from.x, to.y - from.y);
}

std::array<Point, 4> Bow::handles() const
{
    if (isTilted && length() > 0) {
        const Point along = {(to.x - from.x) / length(), (to.y - from.y) / length()};
        const double inset = std::min(length() * 0.28, 4.0);
        // Never back beyond the ends: a curve has one height at each place.
        const auto handle = [&](const Point &end, double way, double rise) {
            return Point{std::clamp(end.x + along.x * way + along.y * rise, from.x, to.x),
                         end.y + along.y * way - along.x * rise};
        };
        return {from, handle(from, inset, fromRise), handle(to, -inset, toRise), to};
    }
    const double width = to.x - from.x;
    const double inset = std::min(width * 0.28, 4.0);
    const double slope = width > 0 ? (to.y - from.y) / width : 0;
    return {from,
            {from.x + inset, from.y + slope * inset - fromRise},
            {to.x - inset, to.y - slope * inset - toRise},
            to};
}

std::vector<Point> Bow::samples(std::size_t count) const
{
    const std::array<Point, 4> handle = handles();
    std::vector<Point> points(count + 1);
    for (std::size_t i = 0; i <= count; ++i)
        points[i] = pointOn(handle, static_cast<double>(i) / static_cast<double>(count));
    return points;
}

std::size_t Bow::sampleCount() const
{
    return static_cast<std::size_t>(
        std::clamp((isTilted ? length() : to.x - from.x) * 3, 12.0, 150.0));
}

} // namespace zarn::engraving
