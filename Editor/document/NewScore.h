// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

namespace zarn {
class ScoreModel;
class Track;
} // namespace zarn

namespace zarn::editor {

/// An empty score with tracks, or without any with a guitar.
std::shared_ptr<ScoreModel> newScore(std::vector<std::shared_ptr<Track>> tracks = {},
                                     unsigned bars = 16);

} // namespace zarn::editor
