// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/io/sheet/Ink.h>

#include <QString>

#include <string>
#include <vector>

namespace zarn::sheet {

/// Columns that a text takes in a terminal: wide characters two, combining ones none.
ZARNCORE_EXPORT int displayWidth(const QString &text);

/// A text cut to a width, the last column an ellipsis when something is missing.
ZARNCORE_EXPORT QString shortened(const QString &text, int width, bool asUtf8);

/// One line of a picture made of characters, written at columns counted from 0.
class ZARNCORE_EXPORT CharacterRow {
public:
    /// The column after the last one written.
    int width() const noexcept { return static_cast<int>(_cells.size()); }

    /// Writes a text over what stands at a column; gaps in front of it become spaces.
    void write(int column, const QString &text, Ink ink);

    /// Writes one character over the columns `from` up to `to`, which is not written.
    void fill(int from, int to, const QString &character, Ink ink);

    /// The line without spaces at its end, as UTF-8, with colours on request.
    std::string toText(bool withColour) const;

private:
    struct Cell {
        char32_t character = U' '; ///< 0: the right half of the wide character before
        Ink ink = Ink::Plain;
    };

    Cell &at(int column);

    std::vector<Cell> _cells;
};

} // namespace zarn::sheet
