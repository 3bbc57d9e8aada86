// SPDX-License-Identifier: MIT
#include "draw/GuiExport.h"

#include "common/Failure.h"

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

GuiExport &guiExport()
{
    QLibrary library(QDir(programFolder()).filePath(QStringLiteral(ZARN_GUI_EXPORT_FILE)));
    const auto function = reinterpret_cast<GuiExportFunction>(library.resolve(guiExportFunction));
    if (function == nullptr)
        throw Failure("PDF and PNG need QtGui and the part of zarn that uses it, which cannot be "
                      "loaded ("
                      + library.errorString().toStdString() + "); SVG and JSON need neither");
    return *function();
}

} // namespace zarn::tool
