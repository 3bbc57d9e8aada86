// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/WrittenMusic.h>

#include <vector>

namespace zarn::io {

/// The tuplets that are open in the voices of a part. A note's time modification is the product of
/// all tuplets around it; the tracker tells the outermost from the rest.
class TupletTracker {
public:
    /// A tuplet begins; a plain ratio when its numbers are not written.
    void start(int voice, int number, const TupletRatio &ratio);

    /// A tuplet whose numbers are not written begins at a note; `told` is what the time
    /// modification of that says of the outermost tuplet, which it may be.
    void startAt(int voice, int number, const TupletRatio &told);

    /// Ends a tuplet; false when none is open by the number, or one that `hold` left out.
    bool stop(int voice, int number);

    /// Gives the tuplets that began in a voice since the last call a ratio each, the outer ones
    /// first. `ratios` is how many the note that is read has; those around it have theirs already.
    /// How many got none.
    int hold(int voice, int ratios);

    bool hasOpen(int voice) const { return outermost(voice) != nullptr; }

    /// Notes of the tuplets that are open in a voice have dots that nobody wrote, till the
    /// outermost ends.
    void supplyDots(int voice, int dots);
    int suppliedDots(int voice) const;

    /// Splits the time modification of a note into the outermost tuplet and what is inside of it.
    void split(int voice, const TupletRatio &modification, WrittenRhythm &rhythm) const;

    /// The tuplets that are open in a voice, as they say themselves: the outermost and what the
    /// others make of it. Plain where none is, or where one of them has no numbers.
    void tell(int voice, WrittenRhythm &rhythm) const;

private:
    struct Open {
        int voice;
        int number;
        TupletRatio ratio;
        int dots = 0;       ///< supplied, of the outermost
        bool isTold = true; ///< by its own numbers
        bool isNew = true;  ///< `hold` has not seen it
        bool isHeld = false;
    };

    const Open *outermost(int voice) const;

    std::vector<Open> _open;
};

} // namespace zarn::io
