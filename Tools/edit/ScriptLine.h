// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <stdexcept>
#include <vector>

namespace zarn::tool {

/// One word of a command line, and the column of its first character, counted from 1.
struct Word {
    QString text;
    int column = 1;
    bool isQuoted = false;
};

/// A command line is wrong at a column; the text says what would be right.
class LineError : public std::runtime_error {
public:
    LineError(int column, const QString &text)
        : std::runtime_error(text.toStdString()), _column(column)
    {
    }

    int column() const noexcept { return _column; }

private:
    int _column;
};

/// Splits a line at its spaces. "Double quotes" keep spaces together; in them \" and \\ stand for
/// a quote and a backslash. A # at the start of a word begins a comment, so that C#4 is a word.
/// Raises `LineError` for a quote that is not closed and for text that follows a closing one.
std::vector<Word> splitLine(const QString &line);

} // namespace zarn::tool
