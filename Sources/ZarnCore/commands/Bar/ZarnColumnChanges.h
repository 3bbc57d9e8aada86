// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/instruments/automations/ZarnAutomation.h>
#include <ZarnCore/model/ZarnBarColumns.h>

#include <utility>
#include <vector>

namespace zarn {

class ScoreBase;
class ScoreModel;

/// What changes beside bar columns that go in or out: the links and simile marks of the bars next
/// to them, the directions and automations at them, the tempo of the start, the systems that they
/// are in. Collected when the columns go one way, announced both ways.
class ZARNCORE_EXPORT ColumnChanges {
public:
    /// Whether the columns are in the model.
    enum class Columns { In, Out };

    /// `count` columns, the first with the number `first`. Forgets what was collected.
    void start(unsigned first, unsigned count);

    /// Compares what was kept of the surroundings, while the columns were in or out as `kept` says,
    /// with the model, where the columns have gone the other way since.
    void addSurroundings(const ScoreModel &model, const BarColumnSurroundings &before,
                         Columns kept);

    /// Whether the bar behind columns that are out came to begin their movement.
    void setMovementStart(const BarColumns &taken) noexcept;

    /// The directions that stand at columns which are out.
    void addDirections(const MasterTrack::DirectionSlots &before);

    /// The automations that columns took along, or that stayed behind as the score's start.
    void addAutomations(const BarColumns &taken);

    /// The tempos of the start while the columns are in and out.
    void setStartTempos(double in, double out) noexcept;

    /// Sends what is beside `AddBars` and `RemoveBars`: the events of the touched bars,
    /// `MasterBarAttribute` for the bar that begins a movement or no more, `MasterBarDirection`,
    /// `RequestMasterBarPlaylistUpdate`, those of the automations, `GlobalTempoChanged`, and those
    /// of the systems, `FullScoreSystemsLayoutChanged` with `ScoreViewSystemLayoutChanged` and
    /// `TrackSystemsLayoutChanged`.
    void announceIn(ScoreBase &score, const void *sender) const;
    void announceOut(ScoreBase &score, const void *sender) const;

private:
    /// A track, or the master track, and a type of automations in it.
    using Container = std::pair<int, Automation::Type>;
    using Containers = std::vector<Container>;

    void announceMovementStart(ScoreBase &score, const void *sender, unsigned bar) const;
    void announceDirections(ScoreBase &score, const void *sender, Columns now) const;
    void announceSystems(ScoreBase &score, const void *sender) const;
    Containers automationsAtStart(const ScoreModel &model) const;
    static void announceAutomations(Containers containers, ScoreBase &score, const void *sender,
                                    unsigned firstBar, unsigned lastBar);

    unsigned _first = 0;
    unsigned _count = 0;
    TouchedBars _touched; ///< numbered as while the columns are out
    bool _movesMovementStart = false;
    std::vector<std::pair<DirectionMark, int>> _directions;
    Containers _automations;
    double _tempoIn = 0;
    double _tempoOut = 0;
    std::vector<int> _systems; ///< whose changed: tracks, and -1 for the full score
};

} // namespace zarn
