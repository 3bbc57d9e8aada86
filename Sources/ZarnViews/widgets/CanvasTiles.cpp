// SPDX-License-Identifier: MIT
#include <ZarnViews/widgets/CanvasTiles.h>

#include <QPainter>

#include <cmath>
#include <memory>

namespace zarn::views {
namespace {

constexpr int mostBytes = 96 << 20;

} // namespace

ScoreCanvas::Tiles::Tiles() : _images(mostBytes / (side * side * 4)) { }

void ScoreCanvas::Tiles::paint(QPainter &painter, const Sheets &sheets, const QRectF &exposed,
                               double pixelRatio)
{
    const double step = side / pixelRatio;
    for (std::size_t sheet = 0; sheet < sheets.count(); ++sheet) {
        const QRectF &rect = sheets.rect(sheet);
        const QRectF seen = rect & exposed;
        if (seen.isEmpty())
            continue;
        const int lastColumn = static_cast<int>(std::ceil((seen.right() - rect.left()) / step)) - 1;
        const int lastRow = static_cast<int>(std::ceil((seen.bottom() - rect.top()) / step)) - 1;
        const int firstRow = static_cast<int>((seen.top() - rect.top()) / step);
        painter.save();
        painter.setClipRect(seen, Qt::IntersectClip);
        for (int row = firstRow; row <= lastRow; ++row) {
            int column = static_cast<int>((seen.left() - rect.left()) / step);
            for (; column <= lastColumn; ++column)
                painter.drawImage(QPointF(rect.left() + column * step, rect.top() + row * step),
                                  tile(sheets, sheet, column, row, pixelRatio));
        }
        painter.restore();
    }
}

const QImage &ScoreCanvas::Tiles::tile(const Sheets &sheets, std::size_t sheet, int column, int row,
                                       double pixelRatio)
{
    const double scale = sheets.pixelsPerUnit() * pixelRatio;
    const Key key{sheets.number(sheet), column, row, scale};
    if (const QImage *known = _images.object(key))
        return *known;
    auto image = std::make_unique<QImage>(side, side, QImage::Format_RGB32);
    image->fill(Qt::white);
    {
        QPainter painter(image.get());
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(-column * side, -row * side);
        painter.scale(scale, scale);
        const auto unit = [scale](int pixels) {
            return static_cast<layout::Unit>(std::lround(pixels / scale));
        };
        const layout::Box exposed{unit(column * side - 1), unit(row * side - 1),
                                  unit((column + 1) * side + 1), unit((row + 1) * side + 1)};
        _painter.paintPage(painter, *sheets.layout(), sheet, exposed);
    }
    image->setDevicePixelRatio(pixelRatio);
    ++_paintedCount;
    QImage *kept = image.get();
    _images.insert(key, image.release());
    return *kept;
}

} // namespace zarn::views
