// SPDX-License-Identifier: MIT
#include "edit/ScriptLine.h"

namespace zarn::tool {

namespace {

/// Reads the quoted word that begins at `position` and moves behind its closing quote.
QString readQuoted(const QString &line, int &position)
{
    const int start = position;
    QString text;
    for (++position; position < line.size(); ++position) {
        QChar character = line.at(position);
        if (character == QLatin1Char('"')) {
            ++position;
            return text;
        }
        if (character == QLatin1Char('\\') && position + 1 < line.size()) {
            const QChar next = line.at(position + 1);
            if (next == QLatin1Char('"') || next == QLatin1Char('\\')) {
                character = next;
                ++position;
            }
        }
        text += character;
    }
    throw LineError(start + 1, QStringLiteral("this quote is not closed; end the text with \""));
}

} // namespace

std::vector<Word> splitLine(const QString &line)
{
    std::vector<Word> words;
    int position = 0;
    while (position < line.size()) {
        const QChar character = line.at(position);
        if (character.isSpace()) {
            ++position;
            continue;
        }
        if (character == QLatin1Char('#'))
            break;
        Word word;
        word.column = position + 1;
        if (character == QLatin1Char('"')) {
            word.isQuoted = true;
            word.text = readQuoted(line, position);
            if (position < line.size() && !line.at(position).isSpace())
                throw LineError(position + 1,
                                QStringLiteral("put a space behind the closing quote"));
        } else {
            while (position < line.size() && !line.at(position).isSpace())
                word.text += line.at(position++);
        }
        words.push_back(word);
    }
    return words;
}

} // namespace zarn::tool
