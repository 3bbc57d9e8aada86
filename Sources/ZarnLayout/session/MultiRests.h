// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Pen.h>
#include <ZarnLayout/session/ScoreSource.h>

namespace zarn::engraving {

/// Finds the bars as they are shown: one by one or, where that is wished, runs of empty ones as
/// one. A run ends at double bars, repeats, endings, sections, changes of meter, key, clef and
/// tempo, fermatas and directions.
void findShownBars(const ScoreSource &score, std::vector<ShownBar> &shown);

/// The sign for bars of rest, with their number above.
EngravedBar multiRest(const Row &row, unsigned count, const Pen &pen);

} // namespace zarn::engraving
