// SPDX-License-Identifier: MIT
#pragma once

namespace zarn {

class ScoreBase;

/// Sends `RequestForcedSoundIndexChange` when the two differ: places of sounds in a track, -1 for
/// none.
void announceForcedSound(ScoreBase &score, const void *sender, unsigned track, int before,
                         int after);

} // namespace zarn
