// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>

#include <optional>
#include <vector>

namespace zarn {

/// Base of commands that say how music is broken into systems, in the full score or in the layout
/// of a track alone. Sends `FullScoreSystemsLayoutChanged` and `ScoreViewSystemLayoutChanged` of
/// the first view, or `TrackSystemsLayoutChanged`.
class ZARNCORE_EXPORT ChangeSystems : public ScoreCommand {
public:
    /// In place of a track.
    static constexpr int FullScore = -1;

    /// The most bars that can be asked for in a system.
    static constexpr int MostBars = 200;

protected:
    using ScoreCommand::ScoreCommand;

    /// Remembers bars per system, and how many the systems behind them hold: 0 for as many as find
    /// room, nothing to leave that. False for a track that is not there, and for a system of less
    /// than 1 or more than `MostBars` bars.
    bool prepare(Score *score, int track, std::vector<int> systems,
                 std::optional<unsigned> defaultCount);

private:
    struct Layout {
        std::vector<int> systems;
        unsigned defaultCount = 0;
    };

    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    bool hasPlace() const;
    Layout layout() const;
    void setLayout(const Layout &layout);

    int _track = FullScore;
    std::vector<int> _systems;
    std::optional<unsigned> _defaultCount;
    Layout _before;
};

} // namespace zarn
