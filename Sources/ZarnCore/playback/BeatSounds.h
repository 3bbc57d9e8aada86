// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/playback/VoicePerformance.h>

namespace zarn::playback {

/// What beats sound beside their notes: fades and swells as expression, the dull brightness of palm
/// muting, knocks on the body, and strings that are slapped dead.
class BeatSounds {
public:
    BeatSounds(const VoicePlace &place, const PlayedBeats &beats, TrackPerformance &result)
        : _place(place), _beats(beats), _result(result)
    {
    }

    void play();

private:
    void addControl(const utils::rational &time, Controller controller, int value);
    void addExpression(const PlayedBeat &played);
    void addBrightness(const PlayedBeat &played);
    void knock(const PlayedBeat &played);
    void slapDead(const PlayedBeat &played);
    PlannedNote noteOf(const PlayedBeat &played, int key, const utils::rational &length) const;

    const VoicePlace &_place;
    const PlayedBeats &_beats;
    TrackPerformance &_result;
    bool _isDull = false;
};

} // namespace zarn::playback
