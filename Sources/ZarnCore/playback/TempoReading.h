// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/playback/ZarnPlayedBars.h>
#include <ZarnCore/playback/ZarnTempoMap.h>

namespace zarn::playback {

/// The tempo of playing: the tempos of the score, those of a bar again each time that it is played,
/// with slides between them and with what is held up. After a jump the tempo is that of the place
/// where the music goes on. Bypassed tempo automations leave the tempo at which the score starts.
TempoMap readTempo(const ScoreModel &model, const PlayedBars &bars,
                   const std::vector<bool> &barsWithCaesura);

} // namespace zarn::playback
