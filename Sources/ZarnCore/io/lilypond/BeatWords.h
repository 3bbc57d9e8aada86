// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace zarn {

class Beat;
class Note;
class Track;
struct ChordDiagram;

namespace lilypond {

/// The signs of a beat that hang on it by themselves: articulations, ornaments, strokes, words.
std::string signsOf(const Beat &beat);

/// The words that one line goes with over a run of beats, as "P.M."; by kinds, empty where the beat
/// has none.
std::vector<std::string> lineWordsOf(const Beat &beat);

/// What stands at a single note: fingers, the string, the sign of a harmonic.
struct NoteWords {
    std::string before; ///< "\parenthesize "
    std::string after;  ///< "-2\5"
    bool needsChord = false;
};

/// `stringNumber` counts from the highest string, 1; 0 for none.
NoteWords wordsOf(const Note &note, const Track &track, int stringNumber);

} // namespace lilypond
} // namespace zarn
