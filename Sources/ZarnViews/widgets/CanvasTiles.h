// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnViews/paint/ZarnScorePainter.h>
#include <ZarnViews/widgets/CanvasSheets.h>

#include <QCache>
#include <QImage>

#include <tuple>

namespace zarn::views {

/// Squares of sheets that were painted, as many as fit into some memory.
class ScoreCanvas::Tiles {
public:
    /// Side of a tile in pixels of the device.
    static constexpr int side = 256;

    Tiles();

    /// Paints the part of the desk that meets `exposed` (in pixels of the desk) to the painter,
    /// whose origin is the desk's.
    void paint(QPainter &painter, const Sheets &sheets, const QRectF &exposed, double pixelRatio);

private:
    struct Key {
        std::uint64_t sheet;
        int column;
        int row;
        double scale;

        friend bool operator==(const Key &a, const Key &b) noexcept
        {
            return a.sheet == b.sheet && a.column == b.column && a.row == b.row
                && a.scale == b.scale;
        }
        friend uint qHash(const Key &key, uint seed) noexcept
        {
            return ::qHash(key.sheet, seed) ^ ::qHash(key.column * 7919 + key.row, seed)
                ^ ::qHash(key.scale, seed);
        }
    };

    const QImage &tile(const Sheets &sheets, std::size_t sheet, int column, int row,
                       double pixelRatio);
    /// Paints a part of a tile, in its pixels.
    void paintPart(QImage &tile, const QRect &part, const Sheets &sheets, std::size_t sheet,
                   const Key &key);

    ScorePainter _painter;
    QCache<Key, QImage> _images;
};

} // namespace zarn::views
