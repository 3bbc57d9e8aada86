// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnScoreModel.h>

#include <cstdint>
#include <vector>

namespace zarn::playback {

/// What one walk over a score finds out, so that others need not look for what is not there.
struct ScoreSurvey {
    /// A beat and its length, next to each other for those who go through a voice again.
    struct OfBeat {
        const Beat *beat;
        utils::rational length;
    };

    /// The beats of one voice slot of a staff.
    struct OfVoice {
        std::vector<OfBeat> beats;
        std::vector<std::uint32_t> barEnds; ///< how many there are up to the end of each bar
    };

    struct OfTrack {
        std::vector<OfVoice> voices; ///< staff by staff, every slot
        bool hasGraces = false;
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
