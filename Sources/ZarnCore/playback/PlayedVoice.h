// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/playback/PlayingTime.h>
#include <ZarnCore/playback/ScoreSurvey.h>
#include <ZarnCore/playback/ZarnPlayedBars.h>

#include <cstdint>
#include <vector>

namespace zarn::playback {

/// A beat at one of the times that it is played.
struct PlayedBeat {
    const Beat *beat = nullptr;
    utils::rational start;  ///< in quarters of playing, with the triplet feel
    utils::rational length; ///< until the next beat; 0 for a grace beat until its time is found
    utils::rational offset; ///< in its bar, as written
    std::uint32_t playedBar = 0;
    std::uint32_t bar = 0;   ///< of the score, where the beat is written
    std::uint32_t index = 0; ///< in its voice

    /// The voice goes on here without a gap: the beat before in the list leads to this one.
    bool isJoined = false;

    utils::rational end() const { return bounded(start + length); }
};

using PlayedBeats = std::vector<PlayedBeat>;

/// For each bar of a staff, the bar whose music it plays: itself, or for a simile mark the one that
/// it repeats, through chains of them.
std::vector<unsigned> sourceBars(const Staff &staff);

/// The beats of one voice slot of a staff in the order of playing. `sources` is what `sourceBars`
/// answers for the staff.
PlayedBeats playVoice(const ScoreModel &model, const ScoreSurvey::OfVoice &voice,
                      const PlayedBars &bars, const std::vector<unsigned> &sources);

} // namespace zarn::playback
