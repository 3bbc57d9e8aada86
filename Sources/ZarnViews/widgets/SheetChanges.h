// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnLayout.h>

#include <optional>

namespace zarn::views {

/// A box outside of which two sheets of one size look the same, in units from the upper left corner
/// of the sheet: around the ink that only one of them has. Empty where they show the same, nothing
/// where so much is changed that the sheet is best painted anew.
std::optional<layout::Box> changeOfSheet(const layout::LayoutPage &before,
                                         const layout::LayoutPage &after,
                                         const layout::MusicFont &font);

} // namespace zarn::views
