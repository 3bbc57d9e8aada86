// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypesSigns.h>

#include <string>

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

} // namespace zarn
