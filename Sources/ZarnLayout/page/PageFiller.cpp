// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/PageFiller.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

constexpr double mostStretch = 16;     ///< that a gap between systems takes on, in staff spaces
constexpr double mostApart = 6;        ///< that one between tracks takes on
constexpr double lastApart = 0.6;      ///< the same where nothing says how loose a page is
constexpr double systemStretch = 2.5;  ///< of systems, where tracks have 1
constexpr double nearest = 0.5;        ///< ink of two systems where one more finds room by it
constexpr double staffClearance = 1.6; ///< the same between ink and the staff of another system
constexpr double pageCost = 1000;
constexpr double squeezeCost = 60; ///< of a page whose systems stand as near as they may
constexpr double loneCost = 40;    ///< of a last page with one system, which looks left over

double heightOf(const std::vector<SystemHeight> &systems, unsigned first, unsigned end)
{
    double height = 0;
    for (unsigned i = first; i < end; ++i)
        height += systems[i].height() + (i > first ? systemGap - systems[i].nesting : 0);
    return height;
}

/// How much nearer to the system above than it wants a system comes at most.
double mostSqueeze(const SystemHeight &system)
{
    return systemGap - system.leastGap;
}

/// The last page of a movement is no looser than `mostLast`. Adds the places of its systems.
FilledPage fill(const std::vector<SystemHeight> &systems, unsigned first, unsigned end, double room,
                bool isLast, double mostLast, std::vector<double> &places)
{
    FilledPage page;
    page.first = first;
    page.end = end;
    const double height = heightOf(systems, first, end);
    const double gaps = end - first - 1;
    double most = 0;
    for (unsigned i = first + 1; i < end; ++i)
        most += mostSqueeze(systems[i]);
    const double squeezed = most > 0 ? std::clamp((height - room) / most, 0.0, 1.0) : 0;
    page.isTooTall = gaps == 0 && height > room; // several are put on a page that they fit on
    // Staves and systems move apart together; what is left over goes between the systems.
    const double rest = std::max(0.0, room - height);
    double readiness = gaps * systemStretch;
    for (unsigned i = first; i < end; ++i)
        readiness += systems[i].stretch;
    if (readiness > 0)
        page.stretch = std::min(rest / readiness, isLast ? mostLast : mostApart);
    double between = page.stretch * systemStretch;
    if (gaps > 0 && !isLast)
        between = std::min(between + (rest - page.stretch * readiness) / gaps, mostStretch);
    double y = 0;
    for (unsigned i = first; i < end; ++i) {
        if (i > first)
            y -= systems[i].nesting + squeezed * mostSqueeze(systems[i]);
        places.push_back(y + systems[i].top);
        y += systems[i].height() + page.stretch * systems[i].stretch + systemGap + between;
    }
    return page;
}

} // namespace

double leastGapOf(double reach, double hanging, double standing)
{
    return std::clamp(staffClearance + std::max(hanging, standing) - reach, nearest, systemGap);
}

FilledPages fillPages(const std::vector<SystemHeight> &systems, const PageRoom &room)
{
    const auto count = static_cast<unsigned>(systems.size());
    std::vector<double> costs(count + 1, 1e18);
    std::vector<unsigned> next(count + 1, count);
    costs[count] = 0;
    for (unsigned first = count; first-- > 0;) {
        const double space = first == 0 ? room.first : room.others;
        double height = 0;
        double most = 0;
        for (unsigned end = first + 1; end <= count; ++end) {
            if (end > first + 1 && systems[end - 1].breaksBefore)
                break;
            height += systems[end - 1].height()
                + (end > first + 1 ? systemGap - systems[end - 1].nesting : 0);
            most += end > first + 1 ? mostSqueeze(systems[end - 1]) : 0;
            if (height - most > space && end > first + 1)
                break;
            const double rest = std::max(0.0, space - height) / std::max(space, 1.0);
            const double squeeze = most > 0 ? std::max(0.0, height - space) / most : 0;
            const bool isLast = end == count || systems[end].breaksBefore;
            const bool isLone = isLast && end == first + 1 && first > 0;
            const double cost = pageCost + (isLast ? 0.1 : 100) * rest * rest
                + squeezeCost * squeeze * squeeze + (isLone ? loneCost : 0) + costs[end];
            if (cost < costs[first]) {
                costs[first] = cost;
                next[first] = end;
            }
        }
    }
    FilledPages filled;
    filled.places.reserve(count);
    double mostLast = lastApart;
    for (unsigned first = 0; first < count; first = next[first]) {
        const bool isLast = next[first] == count || systems[next[first]].breaksBefore;
        filled.pages.push_back(fill(systems, first, next[first],
                                    first == 0 ? room.first : room.others, isLast, mostLast,
                                    filled.places));
        mostLast = isLast ? lastApart : std::max(lastApart, filled.pages.back().stretch);
    }
    return filled;
}

} // namespace zarn::engraving
