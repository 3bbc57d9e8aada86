// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnVoice.h>

#include <vector>

namespace zarn {

/// Writes a length as rhythms, of the tuplets of another where that can be, and exactly in any
/// case. Raises for a length that no rhythms have.
std::vector<RhythmValue> rhythmsLike(const utils::rational &length, const RhythmValue &like);

/// A beat written anew as one that lasts for the given lengths, one after the other: for each the
/// beats that are tied to its time. All of them are copies, among which the attributes are dealt
/// out as `splitAttributes` does; a rest that fills its bar becomes rests of these lengths.
std::vector<Voice::Beats> cutBeat(const Beat &beat, const std::vector<utils::rational> &lengths);

} // namespace zarn
