// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypesEditing.h>
#include <ZarnCore/model/ZarnTrackNotations.h>
#include <ZarnCore/model/layout/ZarnPageSetup.h>
#include <ZarnLayout/ZarnLayoutExport.h>
#include <ZarnLayout/draw/ZarnLayout.h>

#include <memory>
#include <optional>
#include <vector>

namespace zarn {

class ScoreModel;

namespace layout {

class TextMeasure;

/// Where systems end.
enum class SystemBreaks {
    /// As the document says: so many bars per system, in its lists for the full score or, when one
    /// track is shown, in the track's; by themselves where it says 0.
    AsDocument,
    /// As the lists of the document say, where it has any: the number of bars that holds without a
    /// list is no wish of anybody.
    AsListed,
    /// Wherever the music breaks best.
    ByThemselves,
};

/// What of a score is laid out, and on what.
struct LayoutOptions {
    /// Indexes of tracks; none means all.
    std::vector<unsigned> tracks;

    /// Bars `firstBar` to `lastBar`, both included and counted from 0; nothing means to the end.
    unsigned firstBar = 0;
    std::optional<unsigned> lastBar;

    /// In place of what the tracks choose.
    std::optional<TrackNotations> notations;

    ViewLayout view = ViewLayout::Pages;

    /// Runs of empty bars become one sign with their number.
    bool multiRest = false;
    SystemBreaks breaks = SystemBreaks::AsListed;

    /// In place of the page setup of the document.
    std::optional<PageSetup> page;
};

/// Lays a score out. The layout holds nothing of the model, which may change as soon as this
/// returns; while it runs, nobody may change it. What cannot be drawn as it should be is in the
/// problems of the layout, with its place; nothing of a score makes this fail. `font` and `texts`
/// must outlive the call alone.
ZARNLAYOUT_EXPORT std::shared_ptr<const Layout> layOut(const ScoreModel &model,
                                                       const LayoutOptions &options = {});
ZARNLAYOUT_EXPORT std::shared_ptr<const Layout> layOut(const ScoreModel &model,
                                                       const LayoutOptions &options,
                                                       const std::shared_ptr<const MusicFont> &font,
                                                       const TextMeasure &texts);

} // namespace layout
} // namespace zarn
