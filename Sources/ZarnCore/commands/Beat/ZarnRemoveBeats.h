// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Beat/ZarnKeptLinks.h>
#include <ZarnCore/commands/ZarnPlacingCommand.h>
#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <memory>
#include <vector>

namespace zarn::cmd {

/// Removes beats, and keeps them for undo. The beats behind them move up; nothing fills the bar,
/// and a voice may be left without beats. Ties, hammer-ons and slides that led to them are undone;
/// slurs and hairpins go on over the gap. Sends `ModifyBarRange`, or `ModifyBarRangeAllTracks` for
/// a range over all tracks; `ModifyBarRange` for a neighbour that a tie or the like led to as well.
class ZARNCORE_EXPORT RemoveBeats final : public PlacingCommand {
public:
    RemoveBeats();
    ~RemoveBeats() override;

    /// Every beat of the range. False when it holds none.
    bool init(Score *score, const ScoreModelRange &range);

private:
    /// A stretch of a voice that was taken out.
    struct Removed {
        BeatSpan span;
        std::vector<std::shared_ptr<Beat>> beats; ///< while they are out of the voice
        KeptLinks links;
    };

    void putIn() override;
    void takeOut() override;
    void announceIn() override;
    void announceOut() override;

    ScoreModelRange _range;
    std::vector<Removed> _removed;
    TouchedBars _touched;
};

} // namespace zarn::cmd
