// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/playback/PlayedVoice.h>

namespace zarn::playback {

/// Gives grace beats the time that they take.
///
/// In front of the beat each is as long as the value two below the drawn one (an eighth is played
/// as a 32nd), at most a 16th; all of them together take at most half of the beat before, which
/// ends earlier. Where nothing was played before they take silence, in front of the score's start
/// too. On the beat they last as drawn, together at most half of the beat that they lead to, which
/// starts later. What stands behind the last beat of a bar, as the end of a trill does, is played
/// before the bar line.
void placeGraceBeats(PlayedBeats &beats);

} // namespace zarn::playback
