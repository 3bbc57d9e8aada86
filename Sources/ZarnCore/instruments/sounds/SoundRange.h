// SPDX-License-Identifier: MIT
#pragma once

namespace zarn {

class Sound;

/// Whether a sound has numbers that can be played and saved: program and banks from 0 to 127, a
/// role and positions of its switches that there are.
bool isInRange(const Sound &sound) noexcept;

} // namespace zarn
