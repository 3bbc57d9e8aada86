// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/scales/ZarnScale.h>
#include <ZarnCore/scales/ZarnScalePositions.h>

#include <string>
#include <vector>

namespace zarn {
class GuitarTuning;
}

namespace zarn::tool {

class Terminal;

/// The places of a scale on a neck, each drawn as players look down on it: the highest string at
/// the top, the tones at their frets, the tonic in brackets.
std::string positionPicture(const scale::Scale &scale,
                            const std::vector<scale::ScalePosition> &positions,
                            const GuitarTuning &tuning, const Terminal &terminal);

} // namespace zarn::tool
