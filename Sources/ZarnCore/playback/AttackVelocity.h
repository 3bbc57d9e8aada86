// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnBeat.h>

namespace zarn::playback {

/// How a note is reached from the one before it on its string.
enum class Approach { Struck, HammeredOn, PulledOff };

/// How much louder or softer than its dynamic a note is struck for what is marked on it and on its
/// beat, in steps of velocity.
int velocityChange(const Beat &beat, const Note &note, Approach approach, float palmMuteStrength);

/// A velocity with the attack sign of a beat: sforzati rise above the level, and those that go on
/// softly or loudly behind it have an attack of their own.
double attackVelocity(AttackDynamic attack, double velocity);

} // namespace zarn::playback
