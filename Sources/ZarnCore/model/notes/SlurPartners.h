// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/attributes/ZarnSlurEnd.h>
#include <ZarnCore/model/notes/ZarnKeptBeats.h>

#include <vector>

namespace zarn {

class Track;
class Voice;

/// The other end of a numbered slur.
struct SlurPartner {
    KeptBeats::Place place; ///< the track left at 0
    Beat *beat = nullptr;
    SlurEnd end;
};

/// The other ends of the numbered slurs of a beat, which is at a place of a track. Slurs of more
/// than `LongestSlur` bars are not followed.
constexpr unsigned LongestSlur = 64;
std::vector<SlurPartner> slurPartners(const Track &track, const KeptBeats::Place &place);

/// Takes the end off its beat.
void takeOff(const SlurPartner &partner);

} // namespace zarn
