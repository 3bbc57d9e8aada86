// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/ZarnLayoutExport.h>

#include <vector>

namespace zarn::engraving {

/// A bar as line breaking sees it; lengths in staff spaces.
struct BarWidth {
    double fixed = 0;      ///< signs that no spring stretches
    double spring = 0;     ///< at factor 1
    double least = 0;      ///< what the ink asks for
    double words = 0;      ///< more ink, behind another bar: words of both that meet
    double wordsAtEnd = 0; ///< more, at the end of a line: words that reach over the bar line
    double headOfLine = 0; ///< more, when the bar begins a line: clefs, key
    bool breaksBefore = false;
    bool endsSection = false; ///< a line that ends here is welcome

    friend bool operator==(const BarWidth &a, const BarWidth &b) noexcept
    {
        return a.fixed == b.fixed && a.spring == b.spring && a.least == b.least
            && a.words == b.words && a.wordsAtEnd == b.wordsAtEnd && a.headOfLine == b.headOfLine
            && a.breaksBefore == b.breaksBefore && a.endsSection == b.endsSection;
    }
};

/// Where systems begin, for a width: the number of bars of each system.
///
/// The best breaks of the next 24 bars, or of the next forty lines where these hold more, are
/// looked for, the first half of them is kept, and so on: what the breaks depend on is near. The
/// cost of a system is the square of how much its springs give, four times that where they are
/// pressed.
std::vector<unsigned> breakLines(const std::vector<BarWidth> &bars, double firstWidth,
                                 double width);

/// How close springs of a system may be pressed before a bar goes to the next one.
constexpr double leastFactor = 0.72;

/// Cost of a system of the bars `first` up to `end`; above `impossible` when they find no room.
ZARNLAYOUT_EXPORT double costOfLine(const std::vector<BarWidth> &bars, unsigned first, unsigned end,
                                    double width);
constexpr double impossible = 1e6;

} // namespace zarn::engraving
