// SPDX-License-Identifier: MIT
#include "common/Part.h"

#include <QDir>
#include <QFileInfo>
#include <QLibrary>

namespace zarn::tool {
namespace {

/// Where the program lies, without a QCoreApplication.
QString programFolder()
{
    return QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).absolutePath();
}

} // namespace

QFunctionPointer partFunction(const QString &part, const char *function, QString &error)
{
    QLibrary library(QDir(programFolder() + QStringLiteral("/" ZARN_PARTS_FOLDER)).filePath(part));
    const auto found = library.resolve(function);
    if (found == nullptr)
        error = library.errorString();
    return found;
}

} // namespace zarn::tool
