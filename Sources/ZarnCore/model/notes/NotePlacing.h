// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnVoice.h>

namespace zarn {

/// Places the notes of a chord in a voice by time, cutting the beats that are in the way; see
/// `Voice::insertNotesInBeatsBetween`.
Voice::Beats placeNotes(Voice &voice, const Voice::Notes &notes, const utils::rational &start,
                        const utils::rational &end);

} // namespace zarn
