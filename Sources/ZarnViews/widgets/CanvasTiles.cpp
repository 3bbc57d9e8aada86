// SPDX-License-Identifier: MIT
#include <ZarnViews/widgets/CanvasTiles.h>

#include <QPainter>

#include <cmath>
#include <memory>

namespace zarn::views {
namespace {

constexpr int mostBytes = 96 << 20;

/// All pixels of a sheet that ink in a box may colour.
QRect pixelsAround(const layout::Box &box, double scale)
{
    if (box == layout::Box())
        return {};
    constexpr int rim = 2; // boxes are rounded, and edges are soft
    const QPoint first(static_cast<int>(std::floor(box.left * scale)) - rim,
                       static_cast<int>(std::floor(box.top * scale)) - rim);
    const QPoint last(static_cast<int>(std::ceil(box.right * scale)) + rim,
                      static_cast<int>(std::ceil(box.bottom * scale)) + rim);
    return {first, last};
}

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
    // What showed the sheet before it changed is painted again only where it did.
    const Sheets::Former &former = sheets.former(sheet);
    std::unique_ptr<QImage> image(_images.take({former.number, column, row, scale}));
    QRect part(0, 0, side, side);
    if (image == nullptr)
        image = std::make_unique<QImage>(side, side, QImage::Format_RGB32);
    else
        part &= pixelsAround(former.change, scale).translated(-column * side, -row * side);
    image->setDevicePixelRatio(1);
    if (!part.isEmpty())
        paintPart(*image, part, sheets, sheet, key);
    image->setDevicePixelRatio(pixelRatio);
    QImage *kept = image.get();
    _images.insert(key, image.release());
    return *kept;
}

void ScoreCanvas::Tiles::paintPart(QImage &tile, const QRect &part, const Sheets &sheets,
                                   std::size_t sheet, const Key &key)
{
    QPainter painter(&tile);
    painter.setClipRect(part);
    painter.fillRect(part, Qt::white);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPoint corner(key.column * side, key.row * side);
    painter.translate(-corner);
    painter.scale(key.scale, key.scale);
    const auto unit = [&key](int pixels) {
        return static_cast<layout::Unit>(std::lround(pixels / key.scale));
    };
    const QRect seen = part.translated(corner).adjusted(-1, -1, 1, 1);
    _painter.paintPage(painter, *sheets.layout(), sheet,
                       {unit(seen.left()), unit(seen.top()), unit(seen.x() + seen.width()),
                        unit(seen.y() + seen.height())});
}

} // namespace zarn::views
