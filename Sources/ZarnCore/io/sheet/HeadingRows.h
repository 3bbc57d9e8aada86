// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/CharacterRow.h>

#include <vector>

namespace zarn::sheet {

struct Glyphs;
struct System;

/// Puts a text into the lowest row of a stack (the lowest first) that has room for it, or on top of
/// all. A text that is too long for the line moves to the left and, as a last resort, is cut.
void placeText(std::vector<CharacterRow> &stack, int x, const QString &text, Ink ink, int width,
               const Glyphs &glyphs);

/// Draws what stands over a system: the headings of its bars, as many rows as they need, then the
/// brackets of alternate endings, then the bar numbers.
void paintHeadings(const System &system, const Glyphs &glyphs, int width,
                   std::vector<CharacterRow> &rows);

} // namespace zarn::sheet
