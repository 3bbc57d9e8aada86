// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/XmlElement.h>

#include <QString>
#include <QVector>

#include <algorithm>
#include <charconv>

namespace zarn::io {

pugi::xml_node addElement(pugi::xml_node parent, const char *name, long long number)
{
    char digits[24];
    *std::to_chars(std::begin(digits), std::end(digits), number).ptr = '\0';
    return addElement(parent, name, digits);
}

std::string xmlText(const std::string &text)
{
    const auto isPlain = [](char letter) { return letter >= ' ' && letter < '\x7f'; };
    if (std::all_of(text.begin(), text.end(), isPlain))
        return text;
    QString held;
    for (const uint letter :
         QString::fromUtf8(text.data(), static_cast<int>(text.size())).toUcs4()) {
        const bool isControl = letter < 0x20 && letter != '\t' && letter != '\n' && letter != '\r';
        const bool isHalf = letter >= 0xD800 && letter < 0xE000;
        const bool isNone =
            letter == 0xFFFE || letter == 0xFFFF || letter == QChar::ReplacementCharacter;
        if (!isControl && !isHalf && !isNone)
            held += QString::fromUcs4(&letter, 1);
    }
    return held.toStdString();
}

bool trimXmlSpace(std::string &text)
{
    constexpr const char *space = " \t\n\r";
    const auto size = text.size();
    text.erase(text.find_last_not_of(space) + 1);
    text.erase(0, text.find_first_not_of(space));
    return text.size() != size;
}

std::string decimalText(double value)
{
    auto text = QString::number(value, 'f', 6);
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text == QLatin1String("-0") ? "0" : text.toStdString();
}

} // namespace zarn::io
