// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnChordDiagram.h>

#include <QColor>
#include <QRectF>

#include <vector>

class QPainter;

namespace zarn::editor {

/// Draws a chord diagram into a rectangle: strings upright, the lowest on the left, frets from the
/// top, fingers in the dots, what is open and what is not played above. `ink` is drawn on `paper`.
void drawDiagram(QPainter &painter, const QRectF &area, const ChordDiagram &diagram,
                 const std::vector<unsigned> &courseSizes, const QColor &ink, const QColor &paper);

} // namespace zarn::editor
