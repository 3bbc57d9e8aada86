// SPDX-License-Identifier: MIT
#include "chord/ShapeText.h"

#include "common/Failure.h"

#include <QStringList>

#include <algorithm>
#include <optional>

namespace zarn::tool {

namespace {

constexpr int HighestFret = 36;

/// -1 for a string that is not played; nothing for what is neither that nor a fret.
std::optional<int> fretOf(const QString &word)
{
    if (word.compare(QStringLiteral("x"), Qt::CaseInsensitive) == 0)
        return -1;
    bool isNumber = false;
    const int fret = word.toInt(&isNumber);
    const bool isFret = isNumber && fret >= 0 && fret <= HighestFret;
    return isFret ? std::optional<int>(fret) : std::nullopt;
}

} // namespace

ChordDiagram shapeOf(const QString &text, unsigned stringCount)
{
    const QStringList words = text.contains(QLatin1Char('-'))
        ? text.split(QLatin1Char('-'))
        : text.split(QString(), Qt::SkipEmptyParts);
    ChordDiagram diagram;
    bool isPlayed = false;
    for (const QString &word : words) {
        const auto fret = fretOf(word);
        if (!fret)
            throw Failure("\"" + text.toStdString()
                          + "\" is no shape; type a fret for each string from the lowest on, such "
                            "as x32010 or x-12-14-14-13-12");
        diagram.frets.push_back(static_cast<std::int8_t>(*fret));
        isPlayed = isPlayed || *fret >= 0;
    }
    if (diagram.frets.size() != stringCount)
        throw Failure("\"" + text.toStdString() + "\" is for "
                      + std::to_string(diagram.frets.size()) + " strings, and there are "
                      + std::to_string(stringCount));
    if (!isPlayed)
        throw Failure("\"" + text.toStdString() + "\" plays no string");
    setFirstFret(diagram);
    return diagram;
}

std::string shapeText(const ChordDiagram &diagram)
{
    const bool isShort =
        std::all_of(diagram.frets.begin(), diagram.frets.end(), [](int fret) { return fret < 10; });
    std::string text;
    for (const int fret : diagram.frets) {
        text += isShort || text.empty() ? "" : "-";
        text += fret < 0 ? "x" : std::to_string(fret);
    }
    return text;
}

} // namespace zarn::tool
