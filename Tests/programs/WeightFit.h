// SPDX-License-Identifier: MIT
#pragma once

#include "support/FingeredPieces.h"

#include <vector>

/// A weight that fits may change. They begin at what a player would guess, and leave that only as
/// far as marks give reason to: the weights that are built in are not looked at.
struct FittedWeight {
    const char *name;
    double zarn::fingering::FingeringWeights::*weight;
    double guess;
};

const std::vector<FittedWeight> &fittedWeights();

/// The weights under which the marks of pieces are most likely.
zarn::fingering::FingeringWeights fitWeights(const std::vector<FingeredPiece> &pieces);
