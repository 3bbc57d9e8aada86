// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/layout/ZarnPageSetup.h>

namespace zarn::engraving {

/// The sheet in staff spaces.
struct Sheet {
    PageSetup setup;
    double space = 1750; ///< micrometres
    double width = 0;    ///< between the margins
    double height = 0;
    bool isTooSmall = false;

    /// A sheet that is too small for music grows.
    explicit Sheet(const PageSetup &page);

    double spaces(int micrometres) const noexcept { return micrometres / space; }
};

} // namespace zarn::engraving
