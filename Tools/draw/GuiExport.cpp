// SPDX-License-Identifier: MIT
#include "draw/GuiExport.h"

#include "common/Failure.h"
#include "common/Part.h"

namespace zarn::tool {

GuiExport &guiExport()
{
    QString error;
    const auto function = reinterpret_cast<GuiExportFunction>(
        partFunction(QStringLiteral("zarn-gui-export.so"), guiExportFunction, error));
    if (function == nullptr)
        throw Failure("PDF and PNG need QtGui and the part of zarn that uses it, which cannot be "
                      "loaded ("
                      + error.toStdString() + "); SVG and JSON need neither");
    return *function();
}

} // namespace zarn::tool
