// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/source/BarSource.h>

namespace zarn {
class ScoreModel;
class Staff;
class Track;
} // namespace zarn

namespace zarn::engraving {

/// Reads a bar of a staff, with the context that reaches into it.
BarSource readBar(const ScoreModel &model, const Track &track, const Staff &staff, unsigned bar);

/// Reads what all staves share of the bars `first` up to, not including, `end`.
std::vector<ColumnSource> readColumns(const ScoreModel &model, unsigned first, unsigned end);

} // namespace zarn::engraving
