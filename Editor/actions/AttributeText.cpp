// SPDX-License-Identifier: MIT
#include "actions/AttributeText.h"

#include <QCoreApplication>

namespace zarn::editor {

QString attributeText(std::string_view word)
{
    QString text;
    bool wasLower = false;
    for (const char letter : word) {
        const QChar sign = QLatin1Char(letter);
        if (sign.isUpper() && wasLower)
            text += QLatin1Char(' ') + sign.toLower();
        else
            text += sign;
        wasLower = sign.isLower();
    }
    return QCoreApplication::translate("Attributes", text.toLatin1().constData());
}

} // namespace zarn::editor
