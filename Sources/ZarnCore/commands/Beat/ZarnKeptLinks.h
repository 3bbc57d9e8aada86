// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/notes/ZarnKeptBeats.h>

namespace zarn {

class TouchedBars;
class Voice;
struct BeatSpan;

/// The beats around a stretch of a voice, kept while a command changes the stretch and mends what
/// leads into it, and marked as they were when the stretch is as it was: ties, slurs, hairpins,
/// hammer-ons, slides and all else of theirs.
class ZARNCORE_EXPORT KeptLinks {
public:
    /// The stretch is the beats from `first` up to, not including, `end`.
    KeptLinks(const Voice &voice, unsigned first, unsigned end);

    /// After the change: adds the bars of the staff of `place` whose beats were marked otherwise.
    void settle(const BeatSpan &place, TouchedBars &touched);

    void putBack(const Voice &voice) const;

private:
    KeptBeats _beats;
};

} // namespace zarn
