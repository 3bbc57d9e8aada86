// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/EngravedBar.h>
#include <ZarnLayout/engrave/Fonts.h>

#include <vector>

namespace zarn::engraving {

using HeadsOnStem = Few<Head *, 8>;
using ChordsOnStem = Few<Chord *, 2>; ///< most often one alone

/// Puts heads on one stem: from the end of the stem that is at a head, every other note of a
/// cluster goes to the far side. The heads come from the lowest up, with their glyphs, heights and
/// widths; they are given their left edges and told which are displaced. Returns the width of those
/// on the usual side.
double placeOnStem(const HeadsOnStem &heads, bool isStemUp, double scale, const Fonts &fonts);

/// Puts the heads of several chords on one stem, as if they were one chord. Their stems point the
/// same way.
void joinOnStem(const ChordsOnStem &chords, const Fonts &fonts);

/// Where a stem stands beside heads of a width on its usual side; its middle.
double stemBeside(double width, bool isStemUp, const Fonts &fonts);

} // namespace zarn::engraving
