// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <functional>

namespace zarn {
class Score;
}

namespace zarn::editor {

/// A hammer-on or a slide from a note that had none behind it when it was asked for: whoever writes
/// from left to right asks before the next note is there.
struct AwaitedLink {
    ScoreModelIndex from;
    std::function<bool(Score &)> link;
};

} // namespace zarn::editor
