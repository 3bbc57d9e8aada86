// SPDX-License-Identifier: MIT
#pragma once

#include "Random.h"

#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <memory>
#include <utility>

namespace zarn {
class ScoreModel;
class Track;
} // namespace zarn

/// Draws places of a score as it is now; now and then one that is not there.
class RandomPlaces {
public:
    RandomPlaces(const std::shared_ptr<zarn::ScoreModel> &model, Random &random)
        : _model(model), _random(random)
    {
    }

    unsigned barCount() const;

    unsigned bar() { return index(barCount()); }

    /// Bars that follow each other, at most `most`; now and then in the wrong order.
    std::pair<unsigned, unsigned> bars(unsigned most);
    unsigned track();
    unsigned staffOf(unsigned track);

    /// A beat, most of the time one that is there.
    zarn::ScoreModelIndex beat();

    /// A place where a beat can be put in.
    zarn::ScoreModelIndex gap();

    zarn::ScoreModelRange range();

    /// Below `count`, but for a few wild ones.
    unsigned index(unsigned count);

private:
    zarn::ScoreModelIndex barPlace();

    const std::shared_ptr<zarn::ScoreModel> &_model; ///< of a score, which may get another
    Random &_random;
};
