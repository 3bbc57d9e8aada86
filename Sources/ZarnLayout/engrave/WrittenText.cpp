// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/WrittenText.h>

#include <ZarnLayout/font/ZarnMusicFont.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

namespace zarn::engraving {

namespace {

/// Whether a byte begins a character between U+E000 and U+F8FF, where SMuFL has its own, or a tag.
bool isSpecial(char letter)
{
    return letter == '<' || letter == '\xEE' || letter == '\xEF';
}

/// A character of SMuFL's range, which has three bytes; 0 for any other.
char16_t musicCharacter(std::string_view text)
{
    if (text.size() < 3 || (text[0] != '\xEE' && text[0] != '\xEF'))
        return 0;
    const auto bits = [&](std::size_t byte) {
        return static_cast<unsigned>(static_cast<unsigned char>(text[byte])) & 0x3F;
    };
    const auto character = static_cast<char16_t>((static_cast<unsigned char>(text[0]) & 0x0Fu) << 12
                                                 | bits(1) << 6 | bits(2));
    return character >= 0xE000 && character <= 0xF8FF ? character : u'\0';
}

/// The length of a tag of font or style at the beginning of a text; 0 when there is none.
std::size_t styleTagLength(std::string_view text)
{
    const std::size_t end = text.find('>');
    if (end == std::string_view::npos)
        return 0;
    std::string_view name = text.substr(1, end - 1);
    if (!name.empty() && name.front() == '/')
        name.remove_prefix(1);
    name = name.substr(0, name.find_first_of(" /"));
    constexpr std::array<std::string_view, 7> known = {"font", "b", "i", "u", "s", "sub", "sup"};
    return std::find(known.begin(), known.end(), name) != known.end() ? end + 1 : 0;
}

struct NamedSign {
    std::uint32_t glyph;
    std::size_t length; ///< of the tags with the name
};

std::optional<NamedSign> namedSign(std::string_view text, const Fonts &fonts)
{
    constexpr std::string_view opening = "<sym>";
    constexpr std::string_view closing = "</sym>";
    if (text.substr(0, opening.size()) != opening)
        return std::nullopt;
    const std::size_t end = text.find(closing);
    if (end == std::string_view::npos)
        return std::nullopt;
    const auto glyph = fonts.music().find(text.substr(opening.size(), end - opening.size()));
    if (!glyph)
        return std::nullopt;
    return NamedSign{static_cast<std::uint32_t>(*glyph), end + closing.size()};
}

} // namespace

std::vector<TextPiece> piecesOf(const std::string &text, const Fonts &fonts)
{
    std::vector<TextPiece> pieces;
    std::string letters;
    const auto addSign = [&](std::uint32_t sign) {
        if (!letters.empty())
            pieces.push_back({std::move(letters), std::nullopt});
        letters.clear();
        pieces.push_back({std::string(), sign});
    };
    for (std::size_t i = 0; i < text.size();) {
        const std::string_view rest = std::string_view(text).substr(i);
        if (!isSpecial(rest.front())) {
            letters += rest.front();
            ++i;
            continue;
        }
        if (const char16_t character = musicCharacter(rest); character != 0) {
            if (const auto sign = fonts.glyph(character))
                addSign(*sign);
            i += 3;
        } else if (const auto sign = namedSign(rest, fonts)) {
            addSign(sign->glyph);
            i += sign->length;
        } else if (const std::size_t length = styleTagLength(rest); length > 0) {
            i += length;
        } else {
            letters += rest.front();
            ++i;
        }
    }
    if (!letters.empty())
        pieces.push_back({std::move(letters), std::nullopt});
    return pieces;
}

void reportMissingSigns(const std::string &text, const Fonts &fonts, const MarkPlace &place,
                        Problems &problems)
{
    for (std::size_t i = 0; i < text.size(); ++i)
        if (const char16_t character = musicCharacter(std::string_view(text).substr(i));
            character != 0 && !fonts.glyph(character)) {
            std::array<char, 8> code{};
            std::snprintf(code.data(), code.size(), "U+%04X", static_cast<unsigned>(character));
            problems.add(place, std::string("The music font has no sign ") + code.data() + ".");
        }
}

} // namespace zarn::engraving
