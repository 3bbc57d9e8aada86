// SPDX-License-Identifier: MIT
#include <ZarnCore/model/attributes/ZarnAccentFlags.h>

#include <ZarnCore/model/attributes/EnumeratorWord.h>

namespace zarn {

std::string AccentFlags::toString() const
{
    std::string text;
    for (unsigned bit = 1; bit <= AllBits; bit <<= 1)
        if ((_bits & bit) != 0)
            text += (text.empty() ? "" : " ") + accentFlagToString(static_cast<AccentFlag>(bit));
    return text.empty() ? "None" : text;
}

std::optional<AccentFlags> AccentFlags::fromString(std::string_view text)
{
    AccentFlags flags;
    if (text == "None")
        return flags;
    utils::TextScanner scanner(text);
    do {
        AccentFlag flag{};
        if (!takeEnumerator<accentFlagToString, accentFlagFromString>(scanner, flag))
            return std::nullopt;
        flags = AccentFlags(flags.bits() | static_cast<unsigned>(flag));
    } while (scanner.take(" "));
    return scanner.isAtEnd() && flags.isValid() ? std::optional<AccentFlags>(flags) : std::nullopt;
}

} // namespace zarn
