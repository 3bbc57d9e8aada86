// SPDX-License-Identifier: MIT
#include "common/BarRange.h"

#include "common/Arguments.h"
#include "common/Terminal.h"

#include <algorithm>
#include <iostream>

namespace zarn::tool {

std::optional<std::pair<unsigned, unsigned>> numberRange(const QString &text)
{
    const QStringList ends = text.split(QLatin1Char('-'));
    bool isFirst = false;
    bool isLast = false;
    const unsigned first = ends.first().toUInt(&isFirst);
    const unsigned last = ends.last().toUInt(&isLast);
    if (ends.size() > 2 || !isFirst || !isLast || first < 1 || last < first)
        return std::nullopt;
    return std::pair(first, last);
}

BarRange readBarRange(const Arguments &arguments, unsigned barCount)
{
    BarRange range;
    range.last = barCount == 0 ? 0 : barCount - 1;
    if (!arguments.has(QStringLiteral("bars")))
        return range;
    const QString text = arguments.value(QStringLiteral("bars"));
    const auto ends = numberRange(text);
    if (!ends)
        throw UsageError{
            QStringLiteral("--bars takes one bar or a range such as 5-8, not \"%1\"").arg(text)};
    const auto [first, last] = *ends;
    if (first > barCount)
        throw UsageError{QStringLiteral("--bars %1: the score has %2")
                             .arg(text, QString::fromStdString(counted(barCount, "bar")))};
    range.first = first - 1;
    range.last = std::min(last, barCount) - 1;
    if (last > barCount)
        std::cerr << "zarn: --bars " << text.toStdString() << ": the score ends with bar "
                  << barCount << '\n';
    return range;
}

std::optional<std::pair<unsigned, unsigned>> chosenBars(const Arguments &arguments,
                                                        unsigned barCount)
{
    if (!arguments.has(QStringLiteral("bars")))
        return std::nullopt;
    const BarRange bars = readBarRange(arguments, barCount);
    return std::pair(bars.first, bars.last);
}

} // namespace zarn::tool
