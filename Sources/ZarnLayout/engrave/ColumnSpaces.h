// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/EngravedBar.h>
#include <ZarnLayout/engrave/Fonts.h>
#include <ZarnLayout/source/Rows.h>

namespace zarn::engraving {

/// Gives the columns of a bar whose chords have their ink the boxes that keep neighbours apart:
/// those of the ink, and of what stands above and below and is placed later.
void addSpaces(EngravedBar &bar, const BarSource &source, const Row &row, const Fonts &fonts);

} // namespace zarn::engraving
