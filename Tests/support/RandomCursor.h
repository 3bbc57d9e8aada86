// SPDX-License-Identifier: MIT
#pragma once

#include "Random.h"

#include <ZarnCore/model/places/ZarnScoreModelIndex.h>
#include <ZarnCore/utils/SignalContainer.h>

#include <cstdint>
#include <string>

namespace zarn {
class Score;
}

/// Moves the cursor of a score that is being edited, and sees that no edit leaves it in the air.
class RandomCursor {
public:
    RandomCursor(zarn::Score &score, std::uint64_t seed);

    /// To some place that exists: by a key, or far off.
    void move();

    /// What is wrong with where the cursor is now, by a look of its own at the tree, and with what
    /// was announced of its moves; empty when all is well.
    std::string fault() const;

private:
    zarn::Score &_score;
    Random _random;
    zarn::ScoreModelIndex _announced;
    std::string _fault;
    utils::ScopedConnection _connection;
};
