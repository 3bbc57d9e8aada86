// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/attributes/ZarnFermataMark.h>
#include <ZarnCore/model/attributes/ZarnFermataSpan.h>

#include <vector>

namespace zarn {
class ScoreModel;
}

namespace zarn::io {

/// A fermata of a bar, as its notes show it.
struct BarFermata {
    Fermata kind;
    FermataSpan span;

    /// Whether readers find it where it is: over a beat that begins with it and does not end with
    /// beats under a later one.
    bool isTold = false;
};

using BarFermatas = std::vector<BarFermata>;

/// Those of a bar, in the order of their marks.
BarFermatas fermatasOf(const ScoreModel &model, unsigned bar);

} // namespace zarn::io
