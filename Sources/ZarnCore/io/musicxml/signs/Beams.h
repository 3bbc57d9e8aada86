// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/StaffSlots.h>
#include <ZarnCore/model/attributes/ZarnBeamGroups.h>
#include <ZarnCore/music/ZarnTimeSignature.h>

namespace zarn::io {

/// Has the beats of a voice keep the beams of the document where these are not what every engraver
/// would draw: inside of a beat of the meter notes are joined, eighths over beats too; not over the
/// middle of a bar or the beats of a compound meter. A beam that leads to another staff is always
/// said.
void setBeams(std::vector<PlacedBeat> &beats, const TimeSignature &meter, const BeamGroups &groups);

/// A beat whose beams are worked out.
struct BeamedBeat {
    utils::rational onset;
    const Beat *beat = nullptr;
    bool isBeamedOn = false; ///< its outer beam leads on
    bool isSaid = false;     ///< because the beat says so, against what is usual
};

/// Tells which beats of a voice are beamed on: as they say themselves, else as the groups of the
/// bar say, else as `setBeams` expects it.
void findBeams(std::vector<BeamedBeat> &beats, const TimeSignature &meter,
               const BeamGroups &groups);

/// Flags of a note value: 1 for an eighth.
int flagsOf(const Beat &beat);

} // namespace zarn::io
