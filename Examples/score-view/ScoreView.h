// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/score/ZarnScore.h>

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

/// A score as text: a line for what all staves share, and a line for every staff, bar by bar.
///
/// The view reads the whole score once. From then on events tell it which bars have come, gone or
/// changed, and only those are read again, when the command that sent the events is done. The score
/// must outlive it.
class ScoreView {
public:
    explicit ScoreView(zarn::Score &score);
    ScoreView(const ScoreView &) = delete;
    ScoreView &operator=(const ScoreView &) = delete;

    /// Writes the first bars, each with a line per staff.
    void print(std::ostream &out, std::size_t barCount) const;

    /// How many bars of staves, and columns, were read since the view was made or last asked.
    std::size_t takeReadCount() noexcept;

    /// Whether two views show the same.
    friend bool operator==(const ScoreView &left, const ScoreView &right);
    friend bool operator!=(const ScoreView &left, const ScoreView &right)
    {
        return !(left == right);
    }

private:
    /// The text of each bar; nothing for a bar that is stale.
    using Cells = std::vector<std::optional<std::string>>;

    struct TrackLines {
        std::string name;
        std::vector<Cells> staves;
    };

    template <class Event, class Callable>
    void on(Callable &&callable);
    template <class... Events>
    void onStaffBars();
    template <class... Events>
    void onColumns();
    void listen();

    void reset();
    TrackLines linesOfTrack(unsigned track) const;
    void insertBars(int index, int count);
    void removeBars(int index, int count);
    void insertTracks(int index, int count);
    void removeTrack(int track);
    void renameTrack(int track);
    void spoilTrack(int track);
    void spoilColumns(int first, int last);
    void spoilBars(int track, int staff, int first, int last);

    /// Reads what is stale.
    void refresh();

    zarn::Score &_score;
    Cells _columns;
    std::vector<TrackLines> _tracks;
    std::size_t _readCount = 0;

    /// Last, so that no event comes when the rest is gone.
    std::vector<utils::ScopedConnection> _connections;
};
