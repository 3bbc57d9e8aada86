// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/utils/rational.h>

#include <cstddef>
#include <optional>
#include <vector>

namespace zarn {
class ScoreModel;
}

namespace zarn::playback {

/// A bar at one of the times that it is played.
struct PlayedBar {
    unsigned bar = 0;       ///< of the score, counted from 0
    unsigned pass = 0;      ///< how often it was played before
    utils::rational start;  ///< in quarters from the start of the first played bar
    utils::rational length; ///< in quarters: what the meter says, or more where the music is longer
    bool isJump = false;    ///< the bar played before is not the one in front of it
};

/// A place of the score at a moment of playing.
struct PlayPlace {
    std::size_t playedBar = 0; ///< index in `PlayedBars::bars`
    unsigned bar = 0;
    utils::rational offset; ///< in quarters from the start of the bar
};

/// The bars of a score one after the other as they are played, on one line of time in quarters.
class ZARNCORE_EXPORT PlayedBars {
public:
    PlayedBars() = default;
    explicit PlayedBars(const ScoreModel &model);

    /// The same, for bars of which each has the length that is given for it.
    PlayedBars(const ScoreModel &model, const std::vector<utils::rational> &lengths);

    const std::vector<PlayedBar> &bars() const noexcept { return _bars; }
    bool isEmpty() const noexcept { return _bars.empty(); }
    const utils::rational &length() const noexcept { return _length; }

    /// Where a bar of the score starts as written, when each is counted once.
    const utils::rational &writtenStart(unsigned bar) const { return _written[bar]; }

    /// The played bar at a time; the first one for what comes earlier, the last one for what comes
    /// later. Not for an empty list.
    std::size_t indexAt(const utils::rational &time) const;
    PlayPlace placeAt(const utils::rational &time) const;

    /// When a place is played, in the pass counted from 0; nothing when it is not.
    std::optional<utils::rational> timeOf(unsigned bar, const utils::rational &offset,
                                          unsigned pass = 0) const;

    /// The stretch of playing that stays within the bars `first` to `last`: from the first time
    /// that one of them is played until they are left. Empty (both 0) when none is played.
    struct Stretch {
        std::size_t begin = 0;
        std::size_t end = 0;
    };
    Stretch within(unsigned first, unsigned last) const;

    /// The played bars of a stretch alone, the first of them at 0.
    PlayedBars part(const Stretch &stretch) const;

private:
    std::vector<PlayedBar> _bars;
    std::vector<utils::rational> _written;
    utils::rational _length;
};

} // namespace zarn::playback
