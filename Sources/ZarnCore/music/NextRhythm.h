// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/music/ZarnRhythmValue.h>

namespace zarn {

/// What a length in quarters, which is above 0, is begun with when it is written as few notes:
/// a plain or dotted note, else one of a tuplet. Raises for a length that no tuplet completes.
RhythmValue nextRhythm(const utils::rational &length);

} // namespace zarn
