// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <optional>
#include <utility>
#include <vector>

namespace zarn {

class ScoreBase;
class ScoreModelRange;

/// The bars that a command changed, its neighbours' too, collected while it does its work and
/// announced in both directions. Runs that meet are announced as one.
class ZARNCORE_EXPORT TouchedBars {
public:
    void clear() noexcept;

    /// Bars of one staff whose beats or notes changed.
    void add(unsigned track, unsigned staff, unsigned first, unsigned last);

    /// Bars of all staves of all tracks.
    void addAllTracks(unsigned first, unsigned last);

    /// The bars that a range spans, whatever of them it selects.
    void add(const ScoreModelRange &range);

    /// A bar whose simile mark changed.
    void addSimile(unsigned track, unsigned staff, unsigned bar);

    /// Sends `ModifyBarRangeAllTracks` for a range over all tracks, `ModifyBarRange` for all other
    /// bars, then `SimileMarkBarChanged`. Bars from `from` on are announced `count` further up:
    /// where they stand while that many columns are in front of them.
    void announce(ScoreBase &score, const void *sender, unsigned from = 0,
                  unsigned count = 0) const;

private:
    /// Neighbouring bars of one staff, both ends included.
    struct Run {
        unsigned track;
        unsigned staff;
        unsigned first;
        unsigned last;
    };
    using Runs = std::vector<Run>;

    template <class Event>
    static void announceRuns(Runs runs, ScoreBase &score, const void *sender, unsigned from,
                             unsigned count);

    Runs _content;
    Runs _similes;
    std::optional<std::pair<unsigned, unsigned>> _allTracks;
};

} // namespace zarn
