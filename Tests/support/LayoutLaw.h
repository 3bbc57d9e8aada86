// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/session/ZarnScoreLayout.h>

#include <cstdint>
#include <string>

namespace zarn {
class ScoreModel;
}

/// A run of random edits on one score with the proof that a session shows it as it is: after each
/// step the layout that was kept is compared, value by value, with one that is made from nothing.
struct LayoutLaw {
    /// The score is copied.
    const zarn::ScoreModel &model;
    zarn::layout::LayoutOptions options;
    unsigned edits = 100;
    std::uint64_t seed = 1;

    struct Result {
        unsigned edits = 0;
        unsigned layouts = 0;        ///< that were compared
        std::size_t keptSystems = 0; ///< of all of them, those that were not built anew
        std::size_t systems = 0;     ///< of all of them
        std::string fault;           ///< with the step behind which it was found; empty for none
    };
    Result run() const;
};

/// What of two layouts is different first; empty when they are equal.
std::string differenceOf(const zarn::layout::Layout &expected, const zarn::layout::Layout &found);
