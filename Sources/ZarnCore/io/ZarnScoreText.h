// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <memory>
#include <string>
#include <vector>

namespace zarn {
class Bar;
class ScoreModel;
class Staff;
} // namespace zarn

namespace zarn::io {

/// Appends to an empty model the score that a short text describes; the notation is that of
/// `ZarnCoreUtils::make_from_string`. Raises `CoreException` with line, column and what would be
/// right; the model is then half filled.
ZARNCORE_EXPORT void readScoreText(const std::string &text, ScoreModel &model);

/// The bars of music that a text describes as such a text does behind the colon of a track, without
/// meter, key and repeats: "6:0e [5:2 4:2]q. | rh & 6:3w". Strings, capo and drums are those of a
/// staff, which is not changed; the bars are detached. Raises like `readScoreText`.
ZARNCORE_EXPORT std::vector<std::shared_ptr<Bar>> readBarsText(const std::string &text,
                                                               const Staff &like);

} // namespace zarn::io
