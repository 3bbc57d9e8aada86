// SPDX-License-Identifier: MIT
#pragma once

#include "common/CharacterRow.h"
#include "show/Sheet.h"

#include <vector>

namespace zarn::tool {

struct Glyphs;

/// Draws a sheet in lines of at most `width` columns, an empty line between two systems.
std::vector<CharacterRow> paintSheet(const Sheet &sheet, const Glyphs &glyphs, int width);

} // namespace zarn::tool
