// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Fonts.h>
#include <ZarnLayout/engrave/Problems.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zarn::engraving {

/// Letters, or one sign of the music font.
struct TextPiece {
    std::string letters;
    std::optional<std::uint32_t> sign;
};

/// What is read of a text as people and programs write it: SMuFL's characters, and names of its
/// glyphs between `<sym>` and `</sym>`, are signs of the music font; tags of fonts and styles
/// ("<b>", "<font face=...>") say nothing to a reader and are left out, and so are private
/// characters that the music font lacks. Everything else is letters. A text without any of this is
/// one piece, and an empty one none.
std::vector<TextPiece> piecesOf(const std::string &text, const Fonts &fonts);

/// Says which characters of a text `piecesOf` leaves out because the music font lacks them.
void reportMissingSigns(const std::string &text, const Fonts &fonts, const MarkPlace &place,
                        Problems &problems);

} // namespace zarn::engraving
