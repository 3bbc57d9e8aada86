// SPDX-License-Identifier: MIT
#pragma once

#include "show/CharacterRow.h"

#include <vector>

namespace zarn::tool {

struct Glyphs;
struct System;

/// Draws what stands over a system: the headings of its bars, as many rows as they need, then the
/// brackets of alternate endings, then the bar numbers.
void paintHeadings(const System &system, const Glyphs &glyphs, int width,
                   std::vector<CharacterRow> &rows);

} // namespace zarn::tool
