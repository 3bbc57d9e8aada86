// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/playback/ZarnPlaybackPlan.h>
#include <ZarnCore/utils/rational.h>

#include <vector>

namespace zarn {
class ScoreModel;
}

namespace Halvec::audio {

/// What the metronome counts in a bar: three units a beat in 6/8, 9/8 and the like.
struct BarBeats {
    utils::rational beat;   ///< in quarters
    utils::rational length; ///< of the whole bar by its meter, in quarters
    bool isPickup = false;  ///< the bar is the end of a whole one

    int count() const;
};

/// Of each bar of the score.
std::vector<BarBeats> beatsOf(const zarn::ScoreModel &model);

struct PlannedClick {
    double second = 0;
    bool isBarStart = false;
};

/// The beats of a plan's bars as they are played, in order and each at a time of its own.
std::vector<PlannedClick> clicksOf(const zarn::playback::PlaybackPlan &plan,
                                   const std::vector<BarBeats> &beats);

/// What is counted before a place: whole bars, and what a pickup bar lacks or what is in front of
/// the place in its bar, so that the music comes in on its beat.
struct CountIn {
    int beats = 0;
    int beatsPerBar = 1;
    double beatSeconds = 0.5; ///< at the tempo of the place
};
CountIn countInAt(const zarn::playback::PlaybackPlan &plan, const std::vector<BarBeats> &beats,
                  double second, int bars);

} // namespace Halvec::audio
