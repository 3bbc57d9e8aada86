// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/Sheet.h>

#include <algorithm>
#include <utility>

namespace zarn::engraving {

Sheet::Sheet(const PageSetup &page) : setup(page)
{
    if (setup.orientation == PageSetup::Orientation::Landscape)
        std::swap(setup.width, setup.height);
    setup.staffSpace = std::max(setup.staffSpace, 100);
    space = setup.staffSpace;
    width = (setup.width - setup.leftMargin - setup.rightMargin) / space;
    height = (setup.height - setup.topMargin - setup.bottomMargin) / space;
    constexpr double leastWidth = 30;
    constexpr double leastHeight = 20;
    isTooSmall = width < leastWidth || height < leastHeight;
    if (isTooSmall) {
        // Margins give way first, then the sheet grows: notes are never out of sight.
        setup.leftMargin = setup.rightMargin = setup.topMargin = setup.bottomMargin = 0;
        setup.width = std::max(setup.width, static_cast<int>(leastWidth * space));
        setup.height = std::max(setup.height, static_cast<int>(leastHeight * space));
        width = setup.width / space;
        height = setup.height / space;
    }
}

} // namespace zarn::engraving
