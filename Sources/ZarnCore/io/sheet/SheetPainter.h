// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/io/sheet/CharacterRow.h>
#include <ZarnCore/io/sheet/Sheet.h>

#include <vector>

namespace zarn::sheet {

struct Glyphs;

/// Draws a sheet in lines of at most `width` columns, an empty line between two systems.
ZARNCORE_EXPORT std::vector<CharacterRow> paintSheet(const Sheet &sheet, const Glyphs &glyphs,
                                                     int width);

} // namespace zarn::sheet
