// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/CharacterRow.h>

#include <vector>

namespace zarn::sheet {

struct Glyphs;
struct System;

/// Draws the words and lines of a stacked lane, the row next to the notes first. Shorter ones lie
/// inside of longer ones, and none touches another. What began on an earlier system says so again.
std::vector<CharacterRow> paintStretches(const System &system, int lane, const Glyphs &glyphs,
                                         int width);

} // namespace zarn::sheet
