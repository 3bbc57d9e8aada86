// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace zarn {
class ScoreModel;
}

/// The scores that can be imported here: the samples, and the real scores where they are.
std::vector<std::string> scoreFiles();

/// Reads a MusicXML file or a native document, whichever it is. Raises `CoreException` when it is
/// neither or cannot be read.
std::shared_ptr<zarn::ScoreModel> readScore(const std::string &path);
