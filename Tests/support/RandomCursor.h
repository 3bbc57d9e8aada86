// SPDX-License-Identifier: MIT
#pragma once

#include "Random.h"

#include <ZarnCore/model/places/ZarnScoreModelIndex.h>
#include <ZarnCore/utils/SignalContainer.h>

#include <cstdint>
#include <string>
#include <vector>

namespace zarn {
class Score;
}

/// Moves the cursor of a score that is being edited, and sees that no edit leaves it in the air and
/// that it comes back with what is undone.
class RandomCursor {
public:
    RandomCursor(zarn::Score &score, std::uint64_t seed);

    /// To some place that exists: by a key, or far off.
    void move();

    /// What is wrong with where the cursor is now, by a look of its own at the tree, and with what
    /// was announced of its moves; empty when all is well.
    std::string fault() const;

private:
    void startStep();
    void endStep();

    zarn::Score &_score;
    Random _random;
    zarn::ScoreModelIndex _announced;
    std::string _fault;
    std::vector<zarn::ScoreModelIndex>
        _saved;                    ///< where it stood before each step that can be undone
    zarn::ScoreModelIndex _before; ///< where it stood before the step under way
    bool _isUndo = false;
    unsigned _stepsBefore = 0;
    std::vector<utils::ScopedConnection> _connections;
};
