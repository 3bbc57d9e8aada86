// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnScoreModel.h>

#include <vector>

namespace zarn::playback {

/// What one walk over a score finds out, so that others need not look for what is not there.
struct ScoreSurvey {
    struct OfTrack {
        bool hasDynamics = false;    ///< dynamics, attacks, hairpins
        bool hasMarkedBeats = false; ///< any attributes that most beats lack
    };

    explicit ScoreSurvey(const ScoreModel &model);

    /// The length of each bar: what the meter says, or more where a voice holds more.
    std::vector<utils::rational> barLengths;
    std::vector<bool> barsWithCaesura;
    std::vector<OfTrack> tracks;
};

/// `Beat::length`, without a call for what most beats are.
inline utils::rational lengthOf(const Beat &beat)
{
    return beat.isGrace() || beat.hasWholeBarRestMark() ? beat.length()
                                                        : beat.rhythmValue().getLength();
}

} // namespace zarn::playback
