// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/rational.h>

namespace zarn {
class MasterBar;
}

namespace zarn::playback {

/// How much louder a beat is struck for its place in the bar, in velocity: a step at the start of
/// the bar, half a step at the starts of its other groups, which are those of the beams where some
/// are set, else of the meter.
int meterAccent(const MasterBar &bar, const utils::rational &offset);

} // namespace zarn::playback
