// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/Glyphs.h>

#include <cstdlib>

namespace zarn::sheet {

const Glyphs &Glyphs::utf8()
{
    static const Glyphs glyphs = {
        true,
        false,
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
        {QString(), QStringLiteral("\u00bc"), QStringLiteral("\u00bd"), QStringLiteral("\u00be")},
    };
    return glyphs;
}

const Glyphs &Glyphs::ascii()
{
    static const Glyphs glyphs = {
        false,
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
        {QString(), QStringLiteral(".25"), QStringLiteral(".5"), QStringLiteral(".75")},
    };
    return glyphs;
}

const Glyphs &Glyphs::posted()
{
    static const Glyphs glyphs = [] {
        Glyphs made = ascii();
        made.isPosted = true;
        return made;
    }();
    return glyphs;
}

QString Glyphs::tones(int quarterTones) const
{
    const int size = std::abs(quarterTones);
    const QString sign = quarterTones < 0 ? QStringLiteral("-") : QString();
    const QString whole = size >= 4 || size == 0 ? QString::number(size / 4) : QString();
    return sign + whole + quarters.at(static_cast<std::size_t>(size % 4));
}

} // namespace zarn::sheet
