// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

#include <memory>

namespace zarn {

class Staff;

/// The instrument set of a staff that plays no pitches; empty for other staves, and where the set
/// is not known.
std::shared_ptr<const InstrumentSet> nonPitchedSetOf(const Staff &staff);

} // namespace zarn
