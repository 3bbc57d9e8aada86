// SPDX-License-Identifier: MIT
#include "common/ListText.h"

#include "common/CharacterRow.h"
#include "common/Terminal.h"

namespace zarn::tool {

std::string listText(const char *name, const QStringList &items, int width, const char *separator)
{
    constexpr int MostLines = 4;
    if (items.isEmpty())
        return std::string();
    const QString behind = QString::fromLatin1(separator).trimmed();
    QStringList lines(QStringLiteral("%1:").arg(QLatin1String(name)));
    for (int i = 0; i < items.size(); ++i) {
        const QString item = i + 1 < items.size() ? items.at(i) + behind : items.at(i);
        const bool fits = displayWidth(lines.last()) + 1 + displayWidth(item) <= width;
        if (i == 0 || fits) {
            lines.last() += QLatin1Char(' ') + item;
        } else if (lines.size() < MostLines) {
            lines.append(QStringLiteral("  ") + item);
        } else {
            lines.append(QStringLiteral("  ... %1 in all").arg(items.size()));
            break;
        }
    }
    std::string text;
    for (const QString &line : lines)
        text += printable(line.toStdString()) + '\n';
    return text;
}

} // namespace zarn::tool
