// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/notes/ZarnKeptBeats.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>

#include <vector>

namespace zarn {

class ScoreModel;
class TouchedBars;

/// The beats of a range and those around them, kept while a command changes what links them to
/// each other, and marked as they were when the command is undone.
class ZARNCORE_EXPORT KeptRange {
public:
    void clear();
    void keep(const ScoreModel &model, std::vector<BeatSpan> spans);

    /// After the change: takes off what leads nowhere now.
    void mend(const ScoreModel &model);

    /// After that: finds out which beats are marked otherwise.
    void settle();

    /// Adds their bars.
    void addChanged(TouchedBars &touched) const;

    void putBack(const ScoreModel &model) const;

private:
    std::vector<BeatSpan> _spans; ///< until `settle`
    KeptBeats _beats;
};

} // namespace zarn
