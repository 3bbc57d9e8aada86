// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnBeat.h>

#include <vector>

namespace zarn::playback {

/// One of the times that the notes of a beat are struck.
struct Stroke {
    utils::rational offset; ///< in quarters from the start of the beat
    utils::rational length;
    int velocityChange = 0;
    Strum strum; ///< none where all notes are struck at once
};

/// How a beat of a sounding length is struck: once, again and again in a tremolo, or in the pattern
/// of a rasgueado. At least one stroke.
std::vector<Stroke> strokesOf(const Beat &beat, const utils::rational &length);

enum class TremoloSide { First, Second };

/// What lies between the two beats of a tremolo: nothing, or grace notes.
enum class PairJoint { Direct, GraceNotes };

struct TremoloPairTimes {
    utils::rational first; ///< lengths
    utils::rational second;
    utils::rational distance; ///< from start to start
    PairJoint joint = PairJoint::Direct;
};

/// The strokes of one of the two beats of a tremolo between them, which take turns over the time of
/// both; offsets of the second one count from its own start. Where grace notes part them each has
/// the turns of its own time, and the one that the grace notes lead to begins there.
std::vector<Stroke> strokesOfPair(const Beat &first, TremoloSide side,
                                  const TremoloPairTimes &times);

/// The strum that a chord of three notes and more gets by itself, `offset` quarters from the start
/// of its bar: down on the eighths that are beats, up between them.
Strum autoBrush(const Beat &beat, const utils::rational &offset);

/// Which note of a chord is struck when: by number from the lowest string (or pitch) up to the
/// highest, in the quarters that the strum delays it. Without a strum all are 0. A strum takes at
/// most half of its stroke; one that ends on the beat begins in front of it.
std::vector<utils::rational> strumDelays(const Strum &strum, std::size_t noteCount,
                                         const utils::rational &length);

/// Of the notes of a beat, which comes first from the lowest string up: the place in that order of
/// each note. By strings where all notes have one, else by keys.
std::vector<std::size_t> orderFromLowest(const Beat &beat);

/// Quarters that a stroke of a tremolo takes: 1 for eighths to 4 for 64ths.
utils::rational tremoloStroke(unsigned speed);

} // namespace zarn::playback
