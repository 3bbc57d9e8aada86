// SPDX-License-Identifier: MIT
#include <ZarnCore/model/attributes/ZarnBarre.h>

#include <ZarnCore/utils/TextScanner.h>

namespace zarn {

std::string Barre::toString() const
{
    std::string text = std::to_string(fret);
    char separator = ' ';
    for (unsigned string = 0; string < MaxStrings; ++string) {
        if ((strings >> string & 1U) == 0)
            continue;
        text += separator + std::to_string(string);
        separator = ',';
    }
    return text;
}

std::optional<Barre> Barre::fromString(std::string_view text)
{
    utils::TextScanner scanner(text);
    Barre barre;
    if (!scanner.takeNumber(barre.fret))
        return std::nullopt;
    for (const char *separator = " "; scanner.take(separator); separator = ",") {
        unsigned string = 0;
        if (!scanner.takeNumber(string) || string >= MaxStrings || barre.strings >> string != 0)
            return std::nullopt;
        barre.strings = static_cast<std::uint16_t>(barre.strings | 1U << string);
    }
    return scanner.isAtEnd() && barre.isValid() ? std::optional<Barre>(barre) : std::nullopt;
}

} // namespace zarn
