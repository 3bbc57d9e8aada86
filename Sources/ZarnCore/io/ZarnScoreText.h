// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <string>

namespace zarn {
class ScoreModel;
}

namespace zarn::io {

/// Appends to an empty model the score that a short text describes; the notation is that of
/// `ZarnCoreUtils::make_from_string`. Raises `CoreException` with line, column and what would be
/// right; the model is then half filled.
ZARNCORE_EXPORT void readScoreText(const std::string &text, ScoreModel &model);

} // namespace zarn::io
