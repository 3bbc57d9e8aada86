// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnLayoutSearch.h>

#include <vector>

namespace zarn::layout {

/// Boxes outside of which the sheets of two layouts look the same, as far as both have them: what
/// is there of both, old and new, and what a sheet grew by. Sheets that are new are named as a
/// whole.
std::vector<PlacedBox> changesBetween(const Layout &before, const Layout &after);

/// Every sheet as a whole.
std::vector<PlacedBox> wholeSheets(const Layout &layout);

} // namespace zarn::layout
