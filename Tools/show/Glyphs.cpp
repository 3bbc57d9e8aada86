// SPDX-License-Identifier: MIT
#include "show/Glyphs.h"

namespace zarn::tool {

const Glyphs &Glyphs::utf8()
{
    static const Glyphs glyphs = {
        true,
        QStringLiteral("\u2500"),
        QStringLiteral("\u2502"),
        QStringLiteral("\u2551"),
        QStringLiteral("\u2503"),
        QStringLiteral("\u2022"),
        QStringLiteral("\u250c"),
        QStringLiteral("\u2500"),
        QStringLiteral("\u2510"),
        QStringLiteral("\u250c"),
        QStringLiteral("\u2510"),
        QStringLiteral("\u266d"),
        QStringLiteral("\u266f"),
        QStringLiteral("\u2669"),
        QStringLiteral("half"),
        QStringLiteral("\u266a"),
    };
    return glyphs;
}

const Glyphs &Glyphs::ascii()
{
    static const Glyphs glyphs = {
        false,
        QStringLiteral("-"),
        QStringLiteral("|"),
        QStringLiteral("||"),
        QStringLiteral("||"),
        QStringLiteral("*"),
        QStringLiteral("["),
        QStringLiteral("-"),
        QStringLiteral("]"),
        QStringLiteral("["),
        QStringLiteral("]"),
        QStringLiteral("b"),
        QStringLiteral("#"),
        QStringLiteral("q"),
        QStringLiteral("h"),
        QStringLiteral("e"),
    };
    return glyphs;
}

} // namespace zarn::tool
