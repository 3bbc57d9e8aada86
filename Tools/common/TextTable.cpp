// SPDX-License-Identifier: MIT
#include "common/TextTable.h"

#include "common/CharacterRow.h"
#include "common/Terminal.h"

#include <algorithm>

namespace zarn::tool {

/// Columns of the page that each column takes; 0 for one that is empty.
std::vector<int> TextTable::widths() const
{
    std::vector<int> widths(_columns.size(), 0);
    for (const QStringList &row : _rows)
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], displayWidth(row.at(static_cast<int>(i))));
    for (std::size_t i = 0; i < widths.size(); ++i)
        if (widths[i] != 0)
            widths[i] = std::max(widths[i], displayWidth(_columns[i].heading));
    return widths;
}

std::string TextTable::text(const Terminal &terminal) const
{
    constexpr int gap = 2;
    const std::vector<int> columnWidths = widths();
    std::string text;
    const auto addLine = [&](const auto &cellAt, Ink ink) {
        CharacterRow line;
        int left = 0;
        for (std::size_t i = 0; i < _columns.size(); ++i) {
            if (columnWidths[i] == 0)
                continue;
            const QString cell = cellAt(i);
            const bool isRight = _columns[i].side == Side::Right;
            line.write(left + (isRight ? columnWidths[i] - displayWidth(cell) : 0), cell, ink);
            left += columnWidths[i] + gap;
        }
        text += line.toText(terminal.showsColour()) + '\n';
    };
    addLine([&](std::size_t i) { return _columns[i].heading; }, Ink::Heading);
    for (const QStringList &row : _rows)
        addLine([&](std::size_t i) { return row.at(static_cast<int>(i)); }, Ink::Plain);
    return text;
}

} // namespace zarn::tool
