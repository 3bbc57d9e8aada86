// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/EngravedScore.h>

#include <ZarnCore/ZarnTypesEditing.h>
#include <ZarnCore/model/layout/ZarnPageSetup.h>

#include <memory>
#include <vector>

namespace zarn {
class ScoreModel;
}

namespace zarn::engraving {

/// All that a layout needs of a score, as it was at a moment. Never changes, so that any thread may
/// lay it out; what is equal in two of them is shared.
struct ScoreSource {
    std::vector<Row> rows;
    std::vector<unsigned> staffOfRow; ///< among the staves of the columns
    std::vector<TrackHead> tracks;    ///< by index of the track
    TrackGroups groups;

    PageSetup page;
    ViewLayout view = ViewLayout::Pages;
    bool multiRest = false;

    /// One of several tracks is shown: the widths of its bars are its own.
    bool isPart = false;

    /// Bars of each system, and of those behind the list; 0 for systems that break by themselves.
    std::vector<int> systems;
    unsigned usualBars = 0;

    /// Titles, headers and footers; no music.
    std::shared_ptr<const ScoreModel> texts;

    unsigned firstBar = 0;
    unsigned firstNumber = 1; ///< of the score's first bar, as people count
    std::vector<std::shared_ptr<const BarColumn>> columns; ///< from the first bar on
};

} // namespace zarn::engraving
