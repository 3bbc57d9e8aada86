// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace zarn {

/// Semitones that open strings lie below the usual tuning of a guitar or bass with the same
/// intervals; 0 when no usual tuning has these intervals.
int offsetFromReferenceTuning(const std::vector<int> &pitches) noexcept;

} // namespace zarn
