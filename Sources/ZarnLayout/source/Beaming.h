// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/attributes/ZarnBeamGroups.h>
#include <ZarnCore/music/ZarnTimeSignature.h>

#include <vector>

namespace zarn::engraving {

struct BeatSource;

/// Marks the beats of a voice that are beamed to the next one: as they say themselves, else as the
/// groups of the bar say, else by the meter: inside of a beat notes are joined; eighths over
/// beats too, but not over the middle of a bar or the beats of a compound meter. Grace notes among
/// them are beamed by themselves.
void setBeams(std::vector<BeatSource> &beats, const TimeSignature &meter, const BeamGroups &groups);

} // namespace zarn::engraving
