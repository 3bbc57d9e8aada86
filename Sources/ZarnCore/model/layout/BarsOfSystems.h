// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace zarn {

// Bars per system, from the first system on, as bars come and go.

/// Bars in front of the bar `index` join the system of the bar before it; those at the start join
/// the first. What is behind the listed systems stays as it is.
void insertBarsInSystems(std::vector<int> &systems, unsigned index, unsigned count);

/// The bars `first` to `last`, both included, leave their systems; a system that loses all of its
/// bars goes.
void removeBarsFromSystems(std::vector<int> &systems, unsigned first, unsigned last);

} // namespace zarn
