// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/playback/ZarnPlayedBars.h>

#include <vector>

namespace zarn::playback {

/// A time of playing that lasts longer than the tempo says, in all tracks.
struct HeldTime {
    utils::rational start;
    utils::rational end;
    double factor = 1; ///< how many times as long
};

/// What fermatas and caesuras hold up, in order of time and apart from each other.
///
/// A fermata holds the shortest of the beats that begin under it, or else that sound there, by its
/// stretch. One at the end of a bar is a pause: the last 16th in front of it lasts longer by the
/// stretch of a quarter. At a caesura the silence behind the beat lasts three times as long.
std::vector<HeldTime> heldTimes(const ScoreModel &model, const PlayedBars &bars,
                                const std::vector<bool> &barsWithCaesura);

} // namespace zarn::playback
