// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zarn {

/// The sheet on which a score is laid out; lengths in micrometres.
struct PageSetup {
    enum class Orientation : std::uint8_t { Portrait, Landscape };

    /// Size of the sheet upright; A4 at first.
    int width = 210000;
    int height = 297000;
    Orientation orientation = Orientation::Portrait;
    int leftMargin = 15000;
    int topMargin = 15000;
    int rightMargin = 15000;
    int bottomMargin = 15000;

    /// Distance between two staff lines.
    int staffSpace = 1750;

    friend bool operator==(const PageSetup &left, const PageSetup &right) noexcept
    {
        return left.width == right.width && left.height == right.height
            && left.orientation == right.orientation && left.leftMargin == right.leftMargin
            && left.topMargin == right.topMargin && left.rightMargin == right.rightMargin
            && left.bottomMargin == right.bottomMargin && left.staffSpace == right.staffSpace;
    }
    friend bool operator!=(const PageSetup &left, const PageSetup &right) noexcept
    {
        return !(left == right);
    }
};

} // namespace zarn
