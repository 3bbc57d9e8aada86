// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/WrappedText.h>

namespace zarn::sheet {

void addWrapped(std::vector<CharacterRow> &rows, const QString &text, int width, Ink ink)
{
    QString line;
    for (const QString &word : text.split(QLatin1Char(' '))) {
        const QString longer = line.isEmpty() ? word : line + QLatin1Char(' ') + word;
        if (!line.isEmpty() && displayWidth(longer) > width) {
            rows.emplace_back();
            rows.back().write(0, line, ink);
            line = QStringLiteral("    ") + word;
        } else {
            line = longer;
        }
    }
    rows.emplace_back();
    rows.back().write(0, line, ink);
}

void addWrapped(std::vector<CharacterRow> &rows, const QStringList &entries, int width)
{
    QString line;
    for (const QString &entry : entries) {
        const QString longer = line.isEmpty() ? entry : line + QStringLiteral(", ") + entry;
        if (!line.isEmpty() && displayWidth(longer) >= width) {
            addWrapped(rows, line + QLatin1Char(','), width, Ink::Plain);
            line = entry;
        } else {
            line = longer;
        }
    }
    if (!line.isEmpty())
        addWrapped(rows, line, width, Ink::Plain);
}

} // namespace zarn::sheet
