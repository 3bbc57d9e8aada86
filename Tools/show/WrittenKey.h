// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/music/ZarnKeySignature.h>

namespace zarn {

class Bar;

namespace tool {

/// The key signature that the player of a bar's track reads: the concert key, moved by the
/// track's transposition.
KeySignature writtenKey(const Bar &bar);

} // namespace tool
} // namespace zarn
