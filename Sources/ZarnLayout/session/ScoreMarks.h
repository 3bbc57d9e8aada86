// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEventShapes.h>
#include <ZarnCore/events/ZarnEvents.h>
#include <ZarnCore/utils/SignalContainer.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace zarn {
class Score;
}

namespace zarn::engraving {

/// Listens to a score and marks what a layout has to read again. Marks are all that it makes:
/// listeners run inside of commands.
class ScoreMarks {
public:
    explicit ScoreMarks(Score &score);
    ScoreMarks(const ScoreMarks &) = delete;
    ScoreMarks &operator=(const ScoreMarks &) = delete;

    /// Whether anything is marked.
    bool any() const noexcept { return _any; }

    /// Titles, headers and footers.
    bool texts() const noexcept { return _texts; }
    /// What all staves share of their bars.
    bool columns() const noexcept { return _columns; }
    /// Whether a bar of any staff of a track is marked.
    bool bar(unsigned bar, unsigned track) const
    {
        return _everything || bar >= _bars.size() || (_bars[bar] >> (track % 64) & 1) != 0;
    }
    /// Whether a bar of any track is marked.
    bool anyBar(unsigned bar) const
    {
        return _everything || bar >= _bars.size() || _bars[bar] != 0;
    }

    /// For each bar the index that it had when the marks were cleared, or `isNew`.
    const std::vector<std::uint32_t> &origins() const noexcept { return _origins; }
    static constexpr std::uint32_t isNew = 0xffffffff;

    /// Everything is read: the score has so many bars.
    void clear(unsigned barCount);

    void markEverything();
    void setHandler(std::function<void()> handler) { _handler = std::move(handler); }

private:
    template <class Event>
    void listen(Score &score);
    template <class Event>
    void hear(const Event &event);

    void mark();
    void markBars(std::uint64_t tracks, int first, int last);
    void addBars(int index, int count);
    void removeBars(int index, int count);

    bool _any = true; ///< all of the score is marked at first
    bool _everything = true;
    bool _texts = true;
    bool _columns = true;
    std::vector<std::uint64_t> _bars; ///< a bit for each track, shared by those 64 apart
    std::vector<std::uint32_t> _origins;
    std::function<void()> _handler;
    std::vector<utils::ScopedConnection> _connections;
};

} // namespace zarn::engraving
