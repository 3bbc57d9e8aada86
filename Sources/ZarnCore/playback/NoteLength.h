// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnBeat.h>

namespace zarn::playback {

/// How long a note sounds of the time that it is written for, in quarters. `last` is its last piece
/// where it is tied over several beats, which takes `lastLength` of its whole `length`; its signs
/// shorten that piece.
///
/// Staccato 50 %, staccatissimo 25 %, tenuto 100 %, staccato with tenuto 75 %, palm muted 60 %,
/// slapped 80 %; dead notes a 16th at most. Without signs 95 %, but no more than a 64th is left
/// silent. Nothing is left silent in front of a note that is slurred, hammered or slid to. A breath
/// or a caesura behind the beat takes a quarter of it, at most a 16th.
utils::rational soundingLength(const Beat &lastBeat, const Note &last,
                               const utils::rational &length, const utils::rational &lastLength);

/// How long a stroke sounds of a note that is struck again and again, as in a tremolo: signs
/// shorten each of them, and only the last one leaves a gap behind.
utils::rational strokeLength(const Beat &beat, const Note &note, const utils::rational &length,
                             bool isLast);

/// What a breath or a caesura behind a beat leaves silent of its length.
utils::rational silenceOfBreath(const utils::rational &length);

} // namespace zarn::playback
