// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/playback/ZarnPlannedNote.h>
#include <ZarnCore/playback/ZarnPlayedBars.h>

#include <vector>

namespace zarn::playback {

/// The sound of a track and what its automations and pedals change, in the order of playing: the
/// state at the start, each change where it is played, and after a jump the state of the place
/// where the music goes on.
///
/// Sounds are programs and banks, none but the first while one is forced. The volume is controller
/// 7 (127 times the square root of the gain), the panning controller 10. The sustain pedal is
/// controller 64; where it changes it is lifted at the beat and down again a 64th later. The
/// wah-wah pedal is brightness, controller 74: closed 20, open 110. The sounds join those that
/// there are.
std::vector<PlannedControl> controlsOf(const Track &track, const PlayedBars &bars,
                                       bool hasMarkedBeats, std::vector<Sound> &sounds);

/// Of the volume and the panning as the mixer has them.
int controllerOfVolume(float volume);
int controllerOfPan(float pan);

} // namespace zarn::playback
