// SPDX-License-Identifier: MIT
#pragma once

#include "RandomEditor.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace zarn {
class ScoreModel;
}

/// A long run of random edits on one score, with the proof that nothing is lost: undone, all of it
/// is what it was, to the byte; redone, what it became; the tree is sound on the way, the events
/// tell a listener all that changes, the cursor comes back with what is undone, and places and
/// selections that are kept meanwhile name what is there.
struct RandomRun {
    /// The score is copied.
    const zarn::ScoreModel &model;
    unsigned edits = 10000;
    std::uint64_t seed = 1;

    /// Number of looks at the tree and at some steps back and forth, spread over the run.
    unsigned checks = 40;

    struct Result {
        RandomEditor::Tally tally;
        std::size_t steps = 0;      ///< in the undo ring at the end
        unsigned comparedSteps = 0; ///< done, undone and redone, each compared with what was heard
        std::string fault;          ///< what went wrong, empty when all is well
    };
    Result run() const;

    /// The same edits again, each undone and redone at once, to name the first one that does not
    /// come back; slow. Empty when each one does.
    std::string findCulprit() const;

private:
    void runAll(Result &result) const;
};
