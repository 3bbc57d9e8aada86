// SPDX-License-Identifier: MIT
#include <ZarnCore/io/native/Misfit.h>

#include <QLocale>

namespace zarn::io::native {

std::string numberText(double number)
{
    return QByteArray::number(number, 'g', QLocale::FloatingPointShortest).toStdString();
}

} // namespace zarn::io::native
