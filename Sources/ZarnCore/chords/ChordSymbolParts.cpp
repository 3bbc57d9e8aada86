// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/ChordSymbolParts.h>

#include <ZarnCore/chords/ChordSymbolTokens.h>

namespace zarn::chord {

namespace {

std::string trimmed(const std::string &text)
{
    const auto begin = text.find_first_not_of(' ');
    return begin == text.npos ? std::string()
                              : text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

/// How many letters at the start of a text in ASCII name a root.
std::size_t lengthOfRoot(const std::string &ascii, const PitchClass &root)
{
    for (const auto take : {takePitchClass, takeGermanPitchClass}) {
        std::string_view rest = ascii;
        if (take(rest) == root)
            return ascii.size() - rest.size();
    }
    return 0;
}

/// How many bytes of a text make so many letters of ASCII.
std::size_t bytesOf(const std::string &text, std::size_t letters)
{
    std::size_t bytes = 0;
    const auto isWhole = [&] {
        const auto ascii = asciiSymbol(std::string_view(text).substr(0, bytes));
        return ascii && ascii->size() >= letters;
    };
    while (bytes < text.size() && !isWhole())
        ++bytes;
    return bytes;
}

} // namespace

ChordSymbolParts ChordSymbolParts::of(const std::string &symbol, const Chord &chord)
{
    std::string text = trimmed(symbol);
    ChordSymbolParts parts;
    constexpr std::string_view slashes[] = {"/", "／"};
    for (const std::string_view slash : slashes)
        if (const auto at = text.rfind(slash); chord.hasBass() && at != text.npos) {
            parts.bass = trimmed(text.substr(at + slash.size()));
            text = trimmed(text.substr(0, at));
            break;
        }
    const auto ascii = asciiSymbol(text);
    const auto length = ascii ? bytesOf(text, lengthOfRoot(*ascii, chord.root())) : 0;
    parts.root = text.substr(0, length);
    parts.kind = trimmed(text.substr(length));
    return parts;
}

} // namespace zarn::chord
