// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnTimeSignature.h>

#include <string>
#include <vector>

namespace zarn {

class MasterTrack;

/// A tempo, and the place from which on it holds.
struct TempoMark {
    unsigned bar = 0;   ///< counted from 0
    float position = 0; ///< quarters from the start of the bar
    double value = 120; ///< beats per minute, in `unit`
    TempoUnit unit = TempoUnit::Quarter;
    std::string text;      ///< words before the number, such as "Allegro"; UTF-8
    bool isLinear = false; ///< slides on to the next tempo
    bool isVisible = true;
    bool isGiven = true; ///< not the one that a score plays at while it says none
};

/// What holds at a place of the score.
struct InForce {
    TempoMark tempo;
    TimeSignature meter;
    KeySignature key; ///< at concert pitch
};

/// The tempo as written; a bypassed automation is for playback. Where none stands at the first
/// bar's start, the score starts with its `TempoSettings`; while these are at their default no
/// tempo is given, and none is visible. A place behind the end has the last one.
ZARNCORE_EXPORT TempoMark tempoInForce(const MasterTrack &track, unsigned bar, float position = 0);

/// Meter and key of a bar behind the end are those of the last one; without bars 4/4 and C major.
ZARNCORE_EXPORT InForce inForce(const MasterTrack &track, unsigned bar, float position = 0);

/// Every tempo of the score in order, the one that it starts with first.
ZARNCORE_EXPORT std::vector<TempoMark> temposOf(const MasterTrack &track);

} // namespace zarn
