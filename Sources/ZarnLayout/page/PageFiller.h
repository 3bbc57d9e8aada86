// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace zarn::engraving {

/// A system as pages see it, in staff spaces.
struct SystemHeight {
    double top = 0;      ///< from the top line of its first row up
    double bottom = 0;   ///< and down
    double nesting = 0;  ///< how far it may move up between the ink of the system above
    double leastGap = 0; ///< from that ink, where one more system finds room by it
    double stretch = 0;  ///< how readily its rows move apart, all together
    bool breaksBefore = false;

    double height() const noexcept { return top + bottom; }
};

struct FilledPage {
    unsigned first = 0; ///< systems
    unsigned end = 0;
    bool isTooTall = false; ///< one system that is taller than the page
    double stretch = 0;     ///< by which rows move apart that stretch by 1
};

struct FilledPages {
    std::vector<FilledPage> pages;
    std::vector<double> places; ///< by system: of its top line, from the top of its page's room
};

/// Room of a page: what titles take of the first one is gone already.
struct PageRoom {
    double first = 0;
    double others = 0;
};

/// Fills pages with systems, so that the room left over is shared as evenly as can be and as few
/// pages as can be are used.
FilledPages fillPages(const std::vector<SystemHeight> &systems, const PageRoom &room);

/// Distance of the ink of two systems; nearer only where one more fits on a page then.
constexpr double systemGap = 1.8;

/// How near the ink of two systems comes at most: so that both keep off the other's staff, and one
/// sees to which of them it belongs. All heights are from the top line of the last staff of the
/// upper system: `reach` that of the lower one when their ink touches, `hanging` the lowest ink of
/// the upper one, `standing` its bottom line and the ink above the staff of the lower one.
double leastGapOf(double reach, double hanging, double standing);

} // namespace zarn::engraving
