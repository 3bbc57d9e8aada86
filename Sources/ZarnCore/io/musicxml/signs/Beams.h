// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/StaffSlots.h>
#include <ZarnCore/music/ZarnTimeSignature.h>

namespace zarn::io {

/// Has the beats of a voice keep the beams of the document where these are not what every engraver
/// would draw: inside of a beat of the meter notes are joined; not over the middle of a bar, over
/// the beats of a compound meter, and over any beat where notes are shorter than eighths.
void setBeams(std::vector<PlacedBeat> &beats, const TimeSignature &meter);

} // namespace zarn::io
