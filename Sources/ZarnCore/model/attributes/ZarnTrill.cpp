// SPDX-License-Identifier: MIT
#include <ZarnCore/model/attributes/ZarnTrill.h>

#include <ZarnCore/utils/TextScanner.h>

namespace zarn {

std::string Trill::toString() const
{
    const std::string text = std::to_string(interval);
    if (speed == Speed::ThirtySecond)
        return text;
    return text + (speed == Speed::Sixteenth ? " Sixteenth" : " SixtyFourth");
}

std::optional<Trill> Trill::fromString(std::string_view text)
{
    utils::TextScanner scanner(text);
    Trill trill;
    if (!scanner.takeNumber(trill.interval))
        return std::nullopt;
    if (scanner.take(" Sixteenth"))
        trill.speed = Speed::Sixteenth;
    else if (scanner.take(" SixtyFourth"))
        trill.speed = Speed::SixtyFourth;
    return scanner.isAtEnd() && trill.isValid() ? std::optional<Trill>(trill) : std::nullopt;
}

} // namespace zarn
