// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnLayout.h>

#include <QString>
#include <QStringList>

namespace zarn::editor {

/// Whether a path's suffix is one of the drawings: PDF, SVG, PNG.
bool isDrawing(const QString &path);

/// For file dialogs.
QStringList drawingFilters();

/// Writes the sheets of a layout: to one PDF, or of several sheets to "name-1.svg", "name-2.svg"
/// ... Each file is whole or as it was before. Answers with what went wrong, empty when nothing
/// did.
QString saveDrawing(const layout::Layout &layout, const QString &path);

} // namespace zarn::editor
