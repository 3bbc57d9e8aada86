// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/ChordSymbolText.h>

#include <ZarnCore/chords/ZarnChordDiagram.h>

namespace zarn::engraving {

const std::string &shownSymbol(const ChordMark &mark)
{
    return mark.symbol.empty() && mark.diagram ? mark.diagram->name : mark.symbol;
}

std::string writtenSymbol(const std::string &symbol)
{
    constexpr const char *sharp = "\u266F";
    constexpr const char *flat = "\u266D";
    std::string written;
    bool isBehindTone = false; // a letter of root or bass, and its accidentals
    for (std::size_t i = 0; i < symbol.size(); ++i) {
        const char sign = symbol[i];
        const char next = i + 1 < symbol.size() ? symbol[i + 1] : '\0';
        const bool isDegree = next >= '1' && next <= '9';
        if (sign == '#') {
            written += sharp;
        } else if (sign == 'b' && (isBehindTone || isDegree)) {
            written += flat;
        } else {
            written += sign;
            isBehindTone = sign >= 'A' && sign <= 'G' && (i == 0 || symbol[i - 1] == '/');
        }
    }
    return written;
}

} // namespace zarn::engraving
