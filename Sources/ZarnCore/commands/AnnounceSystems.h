// SPDX-License-Identifier: MIT
#pragma once

namespace zarn {

class ScoreBase;

/// Tells that music is broken into systems in another way: that of a track in its own layout, or
/// with -1 that of the full score, which is the first view.
void announceSystems(ScoreBase &score, const void *sender, int track);

} // namespace zarn
