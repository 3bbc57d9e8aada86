// SPDX-License-Identifier: MIT
#pragma once

#include "Random.h"
#include "RandomPlaces.h"

#include <array>
#include <memory>
#include <string>

namespace zarn {
class Score;
}

/// A hundred places and a hundred selections that are kept while a score is edited, as the views of
/// an editor keep them; a few are drawn anew each time.
class KeptPlaces {
public:
    KeptPlaces(zarn::Score &score, std::uint64_t seed);

    /// Asks every place and, in turn, some of the selections what they name now. Empty when each
    /// names what a plain walk of the tree finds, or nothing.
    std::string fault();

private:
    void enterModel();
    zarn::ScoreModelIndex drawPlace();
    zarn::ScoreModelRange drawRange();
    std::string faultOf(const zarn::ScoreModelIndex &place) const;
    std::string faultOf(const zarn::ScoreModelRange &range) const;

    static constexpr unsigned Count = 100;
    static constexpr unsigned RangesAtOnce = 10;

    const std::shared_ptr<zarn::ScoreModel> &_model; ///< of the score, which may get another
    Random _random;
    RandomPlaces _drawn;
    std::array<zarn::ScoreModelIndex, Count> _places;
    std::array<zarn::ScoreModelRange, Count> _ranges;
    unsigned _turn = 0;
};
