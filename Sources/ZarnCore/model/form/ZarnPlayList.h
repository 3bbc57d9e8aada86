// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstddef>
#include <vector>

namespace zarn {

class MasterTrack;

/// The bars of a score in the order in which they are played.
///
/// - Movements are played one after another. No repeat and no jump leads out of a movement, and a
///   fine ends nothing but its own.
/// - A repeat goes back to the nearest repeat start before it, or to the bar after the last repeat
///   that ended, or to the first bar of the movement, until it was played as often as it says.
/// - A bar with alternate endings is played in the passes that it names alone; a repeat at the end
///   of an ending goes back as long as it says or an ending of a later pass is left. Endings
///   without a repeat are passed over in turn while a repeat further on brings the passes.
/// - An ending whose bracket closes before its repeat, which the bracket of another pass follows,
///   goes on to that repeat.
/// - At the end of a bar whose repeats are done its jumps count, each once: da capo to the first
///   bar, da segno to its segno. From there on repeats are not taken and the last ending is played.
/// - A jump "al coda" arms the way to its coda: at the end of the "to coda" bar the music goes on
///   at the coda, whose repeats are played. Any other jump arms the fine, and so does having
///   reached the coda: it ends the movement.
/// - Of several segnos a jump takes the nearest one before it. Of several codas the way to the coda
///   takes the first one behind the jump that armed it.
/// - A direction whose target is not set does nothing, and one outside the movement is not there.
///
/// Every direction and every repeat is followed a limited number of times, so that contradictory
/// ones end too; no list grows longer than `MaxPlayListLength`.
ZARNCORE_EXPORT std::vector<int> unfoldPlayList(const MasterTrack &track);

/// Bars after which unfolding stops, some days of music.
constexpr std::size_t MaxPlayListLength = 1u << 20;

} // namespace zarn
