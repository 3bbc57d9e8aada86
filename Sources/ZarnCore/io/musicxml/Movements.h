// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/PartFacts.h>

#include <set>
#include <string>
#include <vector>

namespace zarn {
class MasterTrack;
}

namespace zarn::io {

class ImportContext;

/// Whether words name a movement: a Roman numeral alone or before a title ("II.", "III. Menuetto"),
/// or a number such as "No. 4" or "Nr. 4".
bool isMovementTitle(const std::string &words);

/// The bars with a fine, and those from which a jump goes back to the start or to a segno.
struct FineBars {
    std::set<int> fines;
    std::set<int> jumps;

    /// Those of some bars that begin a movement, in order. What is closed by a fine that no jump
    /// before it leads to, while a jump behind it has no fine of its own, belongs together: a
    /// minuet and its trio.
    std::vector<int> movementsAmong(const std::set<int> &starts, int barCount) const;
};

/// The bars that begin a movement, in order, without the first bar of the score.
///
/// MusicXML has no sign for it. A movement begins behind a final bar line where the bars are
/// counted from 0 or 1 again, or where a movement's title stands over the bar, unless both sides
/// belong together; see `FineBars`.
std::vector<int> movementStarts(const std::vector<PartFacts> &parts);

/// Reports the bars that repeats and jumps lead past, so that they are never played.
void reportUnplayedBars(const MasterTrack &master, ImportContext &context);

} // namespace zarn::io
