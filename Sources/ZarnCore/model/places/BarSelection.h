// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <algorithm>
#include <vector>

namespace zarn {

/// How many bars before it the bar lies that a simile bar repeats; 0 for any other, and at the
/// front, where there is none.
int simileStep(const Staff &staff, int bar) noexcept;

/// The bar that is heard when a bar is played, through chains of simile marks.
int soundingBar(const Staff &staff, int bar) noexcept;

/// The bars from one number to another in some staves, and what is tied to them or repeated by
/// them.
struct BarSelection {
    int first;
    int last;
    std::vector<const Staff *> staves;

    /// What a range selects; without staves when it selects no bars.
    static BarSelection of(const ScoreModelRange &range);

    int barCount() const noexcept { return last - first + 1; }

    /// Widens the selection to a bar.
    void reach(int bar) noexcept
    {
        first = std::min(first, bar);
        last = std::max(last, bar);
    }

    /// Back to the bars that its simile bars repeat in a staff, then on to the simile bars that
    /// repeat its bars.
    void reachSimiles(const Staff &staff) noexcept;

    /// The bars that are heard when these are played, in all of the staves.
    BarSelection sounding() const;

    /// Whether in any of the staves a note of one of the voices is held over the bar line in front
    /// of a bar.
    bool isCrossedByTie(int bar, unsigned firstVoice, unsigned lastVoice) const noexcept;
};

} // namespace zarn
