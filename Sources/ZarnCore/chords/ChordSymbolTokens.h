// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnChordDegree.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zarn::chord {

class ChordKind;

/// A word, number or sign of what stands behind the root of a chord symbol.
struct SymbolToken {
    enum class Type : std::uint8_t {
        Major,
        Minor,
        Diminished,
        Augmented,
        HalfDiminished,
        Dominant,
        Altered,
        Suspended,
        Add,
        Omit,
        Number, ///< a degree, with its accidentals
        Open,
        Close,
        Comma,
        Slash
    };

    Type type;
    Degree degree = {0, 0};
};

/// The text in ASCII: accidentals as b and #, the triangle as ^, the circle as o, the one that is
/// crossed as h, minus as -. Nothing when it has other signs.
std::optional<std::string> asciiSymbol(std::string_view text);

/// The tokens of a text; nothing when it has a word that no chord symbol has, or parentheses that
/// do not close. Case counts in single letters alone. Spaces part words, and are none.
std::optional<std::vector<SymbolToken>> symbolTokens(std::string_view text);

/// One text for all writings that differ in spaces, parentheses and commas alone.
std::string symbolKey(const SymbolToken *begin, const SymbolToken *end);

/// The row of the table whose text or alias the tokens are; null when there is none.
const ChordKind *kindOfSymbol(const SymbolToken *begin, const SymbolToken *end);

/// The letter with its accidentals at the start of a text, which it takes off; invalid, and
/// nothing is taken, when there is none. Letters are upper case.
PitchClass takePitchClass(std::string_view &text);

/// The same for names that German has of its own: "H", "Fis", "Es". A "B" is not among them, for
/// nothing tells whether B flat is meant.
PitchClass takeGermanPitchClass(std::string_view &text);

} // namespace zarn::chord
