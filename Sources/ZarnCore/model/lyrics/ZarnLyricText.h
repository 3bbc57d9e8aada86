// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypesSigns.h>

#include <string>
#include <string_view>
#include <vector>

namespace zarn {

/// A syllable of lyrics and the notes that it takes.
struct LyricSyllable {
    std::string text; ///< UTF-8; empty for notes without words in front of all others
    Syllabic syllabic = Syllabic::Single;
    bool hasMelisma = false; ///< is held over its further notes

    /// Notes up to the next syllable, its own included.
    unsigned notes = 1;

    friend bool operator==(const LyricSyllable &left, const LyricSyllable &right)
    {
        return left.text == right.text && left.syllabic == right.syllabic
            && left.hasMelisma == right.hasMelisma && left.notes == right.notes;
    }
    friend bool operator!=(const LyricSyllable &left, const LyricSyllable &right)
    {
        return !(left == right);
    }
};

using LyricSyllables = std::vector<LyricSyllable>;

/// Lyrics as they are typed. Spaces and line breaks part words, "-" parts syllables, and each
/// further "-" takes one more note; "_" behind a syllable holds it over one more note, by itself it
/// leaves a note without words; "~" joins two words on a note, and stays; "\" takes the next sign
/// as it is. Any text is one.
ZARNCORE_EXPORT LyricSyllables lyricsFromText(std::string_view text);

/// The text that is read as these syllables. Where a word breaks off or begins in its middle, the
/// syllables beside it decide.
ZARNCORE_EXPORT std::string lyricsToText(const LyricSyllables &syllables);

/// The words that "~" joins on a note: the text of a syllable, cut where they meet. A "~" at an end
/// or beside a space or another one is a sign of the text.
ZARNCORE_EXPORT std::vector<std::string_view> joinedWords(std::string_view text);

} // namespace zarn
