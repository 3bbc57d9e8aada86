// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <vector>

namespace zarn {

enum class ViewLayout : std::uint8_t;
struct PageSetup;

/// What can be done to how a score is laid out: its views, how music is broken into systems, the
/// widths of bars. Views, bars and tracks are counted from 0, and the first view is the full score.
/// Each answers whether it was done: what cannot be done is logged and changes nothing.
class ZARNCORE_EXPORT ScoreLayoutOperations {
public:
    /// Lays a view out on pages, on one endless sheet, or in one line.
    bool setLayout(unsigned view, ViewLayout layout);

    /// Sets the sheet on which the score is laid out; see `cmd::SetPageSetup` for its limits.
    bool setPageSetup(const PageSetup &setup);

    /// Draws runs of empty bars as one in a view, or each of them.
    bool setMultiRest(unsigned view, bool checked);

    /// Leaves the breaking into systems to the program, or asks for the same number of bars in each
    /// system, 1 to 50: in the layout of a track, or with -1 in the full score.
    bool setAutoLayout(int track);
    bool setFixedLayout(int track, unsigned bars);

    /// Bars per system from the first one on, 1 to 200 each; what is behind them is broken as by
    /// default.
    bool setFullScoreSystemsLayout(const std::vector<int> &systems);
    bool setTrackSystemsLayout(unsigned track, const std::vector<int> &systems);

    /// Widths of bars from `first` on among the others of their systems, 0.1 to 10 each and 1 for
    /// what the notes ask for: of the full score, or of a track alone.
    bool setMasterBarLayoutRatios(unsigned first, const std::vector<float> &ratios);
    bool setBarLayoutRatios(unsigned track, unsigned first, const std::vector<float> &ratios);

protected:
    ScoreLayoutOperations() = default;
    ~ScoreLayoutOperations() = default;
};

} // namespace zarn
