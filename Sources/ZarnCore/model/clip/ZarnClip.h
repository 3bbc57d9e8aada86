// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <memory>

namespace zarn {

class ScoreModel;
class ScoreModelRange;

/// Music that was copied, with what it needs to be pasted into another instrument: a model of its
/// own with the tracks that it comes from, their tunings and transpositions. Copies of a clip share
/// the model, which nobody changes.
struct ZARNCORE_EXPORT Clip {
    enum class Kind : std::uint8_t {
        Bars,  ///< bars of staves, whole
        Beats, ///< one bar, in whose voices the beats stand at their times from the first on
    };

    std::shared_ptr<const ScoreModel> model;
    Kind kind = Kind::Bars;

    /// Bars of all tracks: the master bars with meter, key and form belong to it, and what stands
    /// at them.
    bool hasColumns = false;

    /// Number that the first staff of a track had there.
    unsigned firstStaff = 0;

    bool isEmpty() const;
};

/// A copy of the bars that a range selects, whole, and of their staves alone. A simile bar whose
/// original is not copied becomes the music that it stands for. Nothing for a range without bars.
ZARNCORE_EXPORT Clip copyOfBars(ScoreModel &model, const ScoreModelRange &range);

/// A copy of the beats that a range selects, as a stretch of time: pauses between voices and bars
/// stay. Nothing for a range without beats.
ZARNCORE_EXPORT Clip copyOfBeats(ScoreModel &model, const ScoreModelRange &range);

} // namespace zarn
