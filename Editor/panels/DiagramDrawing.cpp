// SPDX-License-Identifier: MIT
#include "panels/DiagramDrawing.h"

#include <QPainter>

#include <algorithm>

namespace zarn::editor {
namespace {

constexpr int fewestRows = 4;

/// Where the parts of a diagram lie in its rectangle.
class Grid {
public:
    Grid(const QRectF &area, const ChordDiagram &diagram) : _diagram(diagram)
    {
        _rows = fewestRows;
        for (const int fret : diagram.frets)
            _rows = std::max(_rows, fret - diagram.firstFret + 1);
        const int gaps = std::max(strings() - 1, 1);
        // A row above for open strings, and to the right of the strings the first fret.
        _unit = std::min(area.height() / (_rows + 1.2), area.width() / (gaps + 2.6));
        _left = area.center().x() - _unit * (gaps + 1) / 2;
        _top = area.top() + _unit * 1.1;
    }

    int strings() const { return static_cast<int>(_diagram.frets.size()); }
    int rows() const { return _rows; }
    double unit() const { return _unit; }
    double x(int string) const { return _left + _unit * string; }
    /// The line above a row, from 0.
    double y(int row) const { return _top + _unit * row; }
    /// Middle of a stop; `isShown` when it lies in the grid.
    bool isShown(int fret) const
    {
        return fret >= _diagram.firstFret && fret - _diagram.firstFret < _rows;
    }
    QPointF stop(int string, int fret) const
    {
        return {x(string), y(fret - _diagram.firstFret) + _unit / 2};
    }
    QRectF around(const QPointF &middle, double width) const
    {
        const double side = _unit * width;
        return {middle.x() - side / 2, middle.y() - side / 2, side, side};
    }

private:
    const ChordDiagram &_diagram;
    int _rows;
    double _unit;
    double _left;
    double _top;
};

void drawLines(QPainter &painter, const Grid &grid, const QColor &ink, bool hasNut)
{
    painter.setPen(QPen(ink, std::max(1., grid.unit() * .05)));
    for (int string = 0; string < grid.strings(); ++string)
        painter.drawLine(QPointF(grid.x(string), grid.y(0)),
                         QPointF(grid.x(string), grid.y(grid.rows())));
    for (int row = 0; row <= grid.rows(); ++row) {
        if (row == 0 && hasNut)
            painter.setPen(QPen(ink, grid.unit() * .2));
        painter.drawLine(QPointF(grid.x(0), grid.y(row)),
                         QPointF(grid.x(grid.strings() - 1), grid.y(row)));
        painter.setPen(QPen(ink, std::max(1., grid.unit() * .05)));
    }
}

void drawAbove(QPainter &painter, const Grid &grid, int string, int fret)
{
    const QRectF sign =
        grid.around({grid.x(string), grid.y(0) - grid.unit() * .55}, fret < 0 ? .4 : .45);
    painter.setBrush(Qt::NoBrush);
    if (fret == 0) {
        painter.drawEllipse(sign);
        return;
    }
    painter.drawLine(sign.topLeft(), sign.bottomRight());
    painter.drawLine(sign.topRight(), sign.bottomLeft());
}

} // namespace

void drawDiagram(QPainter &painter, const QRectF &area, const ChordDiagram &diagram,
                 const std::vector<unsigned> &courseSizes, const QColor &ink, const QColor &paper)
{
    if (diagram.frets.empty())
        return;
    const Grid grid(area, diagram);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    drawLines(painter, grid, ink, diagram.firstFret <= 1);
    QFont font = painter.font();
    font.setPixelSize(std::max(6, static_cast<int>(grid.unit() * .62)));
    painter.setFont(font);
    if (diagram.firstFret > 1)
        painter.drawText(QRectF(grid.x(grid.strings() - 1) + grid.unit() * .5, grid.y(0),
                                grid.unit() * 2, grid.unit()),
                         Qt::AlignLeft | Qt::AlignVCenter, QString::number(diagram.firstFret));
    for (const DiagramBarre &barre : barresOf(diagram, courseSizes)) {
        if (!grid.isShown(barre.fret))
            continue;
        painter.setPen(QPen(ink, grid.unit() * .3, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(grid.stop(barre.firstString, barre.fret),
                         grid.stop(barre.lastString, barre.fret));
    }
    for (int string = 0; string < grid.strings(); ++string) {
        const int fret = diagram.frets[static_cast<std::size_t>(string)];
        painter.setPen(QPen(ink, std::max(1., grid.unit() * .06)));
        if (fret <= 0) {
            drawAbove(painter, grid, string, fret);
            continue;
        }
        if (!grid.isShown(fret))
            continue;
        painter.setBrush(ink);
        const QRectF dot = grid.around(grid.stop(string, fret), .8);
        painter.drawEllipse(dot);
        const auto at = static_cast<std::size_t>(string);
        const int finger = at < diagram.fingers.size() ? diagram.fingers[at] : 0;
        painter.setPen(paper);
        if (finger > 0)
            painter.drawText(dot, Qt::AlignCenter,
                             finger == 5 ? QStringLiteral("T") : QString::number(finger));
    }
    painter.restore();
}

} // namespace zarn::editor
