// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace zarn {

/// "4,3,5", as commands record lists.
template <class Numbers>
QString numbersText(const Numbers &numbers)
{
    QStringList texts;
    for (const auto number : numbers)
        texts.append(QString::number(number));
    return texts.join(QLatin1Char(','));
}

} // namespace zarn
