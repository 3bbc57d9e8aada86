// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>
#include <vector>

namespace zarn {
class ScoreModel;
class Track;
} // namespace zarn

namespace zarn::editor {

struct NewScoreSettings {
    std::vector<std::shared_ptr<Track>> tracks; ///< none means a guitar
    unsigned bars = 16;
    int tempo = 120; ///< quarters per minute
    QString title;
};

/// A score without notes.
std::shared_ptr<ScoreModel> newScore(NewScoreSettings settings = {});

} // namespace zarn::editor
