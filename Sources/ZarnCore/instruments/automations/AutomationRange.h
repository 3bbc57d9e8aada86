// SPDX-License-Identifier: MIT
#pragma once

namespace zarn {

class Automation;

/// Quarters from the start of its bar at which an automation may stand at most.
constexpr double highestAutomationPosition = 1e6;

/// Whether a tempo is above 0; true for what is no tempo.
bool isPositiveTempo(const Automation &automation) noexcept;

/// Whether an automation has numbers that can be played and saved: a place in its bar, a finite
/// value, a tempo above 0 in a unit that there is, a sound whose numbers are such.
bool isInRange(const Automation &automation) noexcept;

} // namespace zarn
