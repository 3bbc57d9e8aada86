// SPDX-License-Identifier: MIT
#pragma once

#include "edit/Parameter.h"

#include <QStringList>

#include <vector>

namespace zarn::tool {

struct Word;

// Readers of places that take several words. They raise `LineError` for what they do not know, and
// for places that do not exist.

/// "3", "3-5", "3:2", "3:2 - 4:1", "all" or "none", and "track 2", "staff all", "v2" and the like.
Value readSelection(const Parameter &, const std::vector<Word> &words,
                    const ReadingContext &context);

/// "3:2", "3", "string 2", "t1", "last bar", in any number.
Value readCursorMoves(const Parameter &, const std::vector<Word> &words,
                      const ReadingContext &context);

/// The words that one of the two knows.
QStringList placeWords(Kind kind);

} // namespace zarn::tool
