// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace zarn::tool {

class Terminal;

/// Rows of cells under headings, printed as aligned columns.
class TextTable {
public:
    enum class Side { Left, Right };
    struct Column {
        QString heading;
        Side side = Side::Left; ///< Right for numbers
    };

    explicit TextTable(std::vector<Column> columns) : _columns(std::move(columns)) { }

    /// A cell for each column.
    void addRow(QStringList cells) { _rows.push_back(std::move(cells)); }

    /// One line for the headings and one for each row; a column in which no row has anything is
    /// left out. Lines are as long as they need to be.
    std::string text(const Terminal &terminal) const;

private:
    std::vector<int> widths() const;

    std::vector<Column> _columns;
    std::vector<QStringList> _rows;
};

} // namespace zarn::tool
