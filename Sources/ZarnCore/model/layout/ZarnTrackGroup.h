// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypesSigns.h>

#include <string>
#include <vector>

namespace zarn {

/// Neighbouring tracks that are drawn as one group.
struct TrackGroup {
    unsigned first = 0; ///< index of a track
    unsigned last = 0;  ///< included
    std::string name;   ///< UTF-8
    GroupSymbol symbol = GroupSymbol::None;
    bool barsThrough = false; ///< bar lines go through from staff to staff

    friend bool operator==(const TrackGroup &left, const TrackGroup &right)
    {
        return left.first == right.first && left.last == right.last && left.name == right.name
            && left.symbol == right.symbol && left.barsThrough == right.barsThrough;
    }
    friend bool operator!=(const TrackGroup &left, const TrackGroup &right)
    {
        return !(left == right);
    }
};

using TrackGroups = std::vector<TrackGroup>;

// What becomes of groups when tracks come, go and move. Groups keep their tracks: a track that
// comes in between two of a group joins it, one that stands in front of the first or behind the
// last does not.

ZARNCORE_EXPORT TrackGroups groupsAfterInsertion(TrackGroups groups, unsigned index);

/// A group whose only track goes, goes too.
ZARNCORE_EXPORT TrackGroups groupsAfterRemoval(TrackGroups groups, unsigned index);

/// `to` is the index that the track has in the end. A track that moves inside its group stays in
/// it, and a group of one track follows it.
ZARNCORE_EXPORT TrackGroups groupsAfterMove(TrackGroups groups, unsigned from, unsigned to);

} // namespace zarn
