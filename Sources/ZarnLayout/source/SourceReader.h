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

/// Reads the bars `first` up to, not including, `end` of a staff.
StaffSource readStaff(const ScoreModel &model, unsigned track, unsigned staff, unsigned first,
                      unsigned end);

/// Reads what all staves share.
std::vector<ColumnSource> readColumns(const ScoreModel &model, unsigned first, unsigned end);

} // namespace zarn::engraving
