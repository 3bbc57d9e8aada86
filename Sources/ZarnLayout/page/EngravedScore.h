// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/EngravedBar.h>
#include <ZarnLayout/source/Rows.h>
#include <ZarnLayout/space/BarSpacer.h>

#include <ZarnCore/model/layout/ZarnTrackGroup.h>

#include <string>
#include <vector>

namespace zarn::engraving {

/// A bar as it is shown, or bars of rest under one sign.
struct ShownBar {
    unsigned bar = 0; ///< index in the score
    unsigned count = 1;
};

struct TrackHead {
    std::string name;
    std::string shortName;
    std::uint8_t lyricsVisible = 31;
    unsigned stringCount = 0;
};

/// All of a score that systems are made of.
struct EngravedScore {
    std::vector<Row> rows;
    std::vector<StaffSource> staves;
    std::vector<unsigned> staffOfRow;
    std::vector<TrackHead> tracks; ///< by index of the track
    TrackGroups groups;
    unsigned firstBar = 0;
    std::vector<ColumnSource> columns; ///< from the first bar on
    std::vector<ShownBar> shown;
    std::vector<std::vector<EngravedBar>> bars; ///< by row, by shown bar
    std::vector<SpacedBar> spaced;              ///< by shown bar

    const BarSource &source(unsigned row, unsigned shownBar) const
    {
        return staves[staffOfRow[row]].bars[shown[shownBar].bar - firstBar];
    }
    const ColumnSource &column(unsigned shownBar) const
    {
        return columns[shown[shownBar].bar - firstBar];
    }
    /// Of the last bar under the sign.
    const ColumnSource &lastColumn(unsigned shownBar) const
    {
        return columns[shown[shownBar].bar + shown[shownBar].count - 1 - firstBar];
    }
};

} // namespace zarn::engraving
