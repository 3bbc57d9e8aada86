// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/PageFiller.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

constexpr double mostStretch = 16; ///< that a gap takes on, in staff spaces
constexpr double pageCost = 1000;

double heightOf(const std::vector<SystemHeight> &systems, unsigned first, unsigned end)
{
    double height = 0;
    for (unsigned i = first; i < end; ++i)
        height += systems[i].height() + (i > first ? systemGap - systems[i].nesting : 0);
    return height;
}

FilledPage fill(const std::vector<SystemHeight> &systems, unsigned first, unsigned end, double room,
                bool isLast)
{
    FilledPage page;
    page.first = first;
    page.end = end;
    const double height = heightOf(systems, first, end);
    page.isTooTall = height > room;
    double stretch = 0;
    if (end - first > 1) {
        const double rest = std::max(0.0, room - height) / (end - first - 1);
        // What is nearly full becomes full; a page with much room left stays as it is.
        stretch = isLast ? std::min(rest, 1.5) : std::min(rest, mostStretch);
    }
    double y = 0;
    for (unsigned i = first; i < end; ++i) {
        if (i > first)
            y -= systems[i].nesting;
        page.places.push_back(y + systems[i].top);
        y += systems[i].height() + systemGap + stretch;
    }
    return page;
}

} // namespace

std::vector<FilledPage> fillPages(const std::vector<SystemHeight> &systems, const PageRoom &room)
{
    const auto count = static_cast<unsigned>(systems.size());
    std::vector<double> costs(count + 1, 1e18);
    std::vector<unsigned> next(count + 1, count);
    costs[count] = 0;
    for (unsigned first = count; first-- > 0;) {
        const double space = first == 0 ? room.first : room.others;
        double height = 0;
        for (unsigned end = first + 1; end <= count; ++end) {
            if (end > first + 1 && systems[end - 1].breaksBefore)
                break;
            height += systems[end - 1].height()
                + (end > first + 1 ? systemGap - systems[end - 1].nesting : 0);
            if (height > space && end > first + 1)
                break;
            const double rest = std::max(0.0, space - height) / std::max(space, 1.0);
            const bool isLast = end == count || systems[end].breaksBefore;
            const double cost = pageCost + (isLast ? 0.1 : 100) * rest * rest + costs[end];
            if (cost < costs[first]) {
                costs[first] = cost;
                next[first] = end;
            }
        }
    }
    std::vector<FilledPage> pages;
    for (unsigned first = 0; first < count; first = next[first])
        pages.push_back(fill(systems, first, next[first], first == 0 ? room.first : room.others,
                             next[first] == count || systems[next[first]].breaksBefore));
    return pages;
}

} // namespace zarn::engraving
