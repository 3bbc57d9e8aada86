// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypesEditing.h>

namespace zarn {

/// How one view shows a score.
struct ScoreView {
    ViewLayout layout = ViewLayout::Pages;

    /// Draws runs of empty bars as one. A run ends at double bars, repeats, sections, changes of
    /// meter, key and tempo, fermatas and directions.
    bool multiRest = false;

    friend constexpr bool operator==(const ScoreView &left, const ScoreView &right) noexcept
    {
        return left.layout == right.layout && left.multiRest == right.multiRest;
    }
    friend constexpr bool operator!=(const ScoreView &left, const ScoreView &right) noexcept
    {
        return !(left == right);
    }
};

} // namespace zarn
