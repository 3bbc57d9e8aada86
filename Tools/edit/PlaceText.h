// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zarn {

class ScoreCursor;
class ScoreModelIndex;
class ScoreModelRange;

namespace tool {

/// "3:2 in track 1, voice 1, string 2"; "nowhere" without track or bar.
QString placeText(const ScoreModelIndex &place);

/// Where a cursor is and what is there, in players' words: "3:2 in track 1 (Guitar), voice 1,
/// string 2: eighth, B4 on string 2 fret 0".
QString cursorText(const ScoreCursor &cursor);

/// What a range selects, counted: "3:2 to 4:1 in track 1 (Guitar), voice 1: 2 bars, 8 beats, 9
/// notes".
QString selectionText(const ScoreModelRange &range);

} // namespace tool
} // namespace zarn
