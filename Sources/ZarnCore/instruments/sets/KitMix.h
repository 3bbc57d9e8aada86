// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/effects/ZarnVolumePan.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSetElement.h>

#include <vector>

namespace zarn {

/// Where an element of a kit stands in a usual mix; see `InstrumentSet::volumePanFromElement`. Full
/// level in the middle for an element that is not among those of the kit.
ZarnVolumePan placeInKitMix(const std::vector<InstrumentSetElement> &kit,
                            const InstrumentSetElement &element);

} // namespace zarn
