// SPDX-License-Identifier: MIT
#include <ZarnCore/model/attributes/ZarnStrum.h>

#include <ZarnCore/model/attributes/EnumeratorWord.h>

namespace zarn {

std::string Strum::toString() const
{
    std::string text = directionToString(direction);
    if (length != 0)
        text += " " + std::to_string(length);
    if (anchor != StrumAnchor::StartsOnBeat)
        text += " " + strumAnchorToString(anchor);
    return text;
}

std::optional<Strum> Strum::fromString(std::string_view text)
{
    utils::TextScanner scanner(text);
    Strum strum;
    if (!takeEnumerator<directionToString, directionFromString>(scanner, strum.direction))
        return std::nullopt;
    if (scanner.take(" ") && scanner.takeNumber(strum.length) && !scanner.isAtEnd()
        && !scanner.take(" "))
        return std::nullopt;
    if (!scanner.isAtEnd()
        && !takeEnumerator<strumAnchorToString, strumAnchorFromString>(scanner, strum.anchor))
        return std::nullopt;
    return scanner.isAtEnd() && strum.isValid() ? std::optional<Strum>(strum) : std::nullopt;
}

} // namespace zarn
