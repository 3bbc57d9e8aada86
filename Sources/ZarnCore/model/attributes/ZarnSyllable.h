// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypesSigns.h>

#include <cstdint>
#include <string>
#include <vector>

namespace zarn {

/// What one line of lyrics sings on a beat.
struct ZARNCORE_EXPORT Syllable {
    /// Lines of lyrics that a track can have.
    static constexpr unsigned LineCount = 5;

    std::uint8_t line = 0; ///< 0 to 4
    Syllabic syllabic = Syllabic::Single;
    bool hasMelisma = false; ///< is held over the notes that follow
    std::string text;        ///< UTF-8

    /// Text with a "-" where the word goes on, and a "_" where the syllable is held.
    std::string toString() const;

    friend bool operator==(const Syllable &left, const Syllable &right)
    {
        return left.line == right.line && left.syllabic == right.syllabic
            && left.hasMelisma == right.hasMelisma && left.text == right.text;
    }
    friend bool operator!=(const Syllable &left, const Syllable &right) { return !(left == right); }
};

/// The syllables of a beat: one for a line at most, in the order of the lines.
using Syllables = std::vector<Syllable>;

/// Whether lines and their order are as they must be.
ZARNCORE_EXPORT bool areValid(const Syllables &syllables) noexcept;

} // namespace zarn
