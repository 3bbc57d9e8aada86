// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnLayout.h>
#include <ZarnViews/ZarnViewsExport.h>

#include <QColor>

#include <cstddef>
#include <memory>

class QPainter;

namespace zarn::views {

/// How glyphs and texts reach the device.
enum class GlyphDrawing : std::uint8_t {
    Outlines, ///< as shapes: exact to a fraction of a pixel on screens and in images
    Fonts,    ///< as characters: small and searchable in PDF
};

/// Paints engraved music with a `QPainter`. Keeps outlines that it made, so one painter that paints
/// often is faster than many; it belongs to one thread at a time. `GlyphDrawing::Fonts` needs a
/// `QGuiApplication`, and so do texts in characters that Edwin lacks.
class ZARNVIEWS_EXPORT ScorePainter {
public:
    explicit ScorePainter(GlyphDrawing glyphs = GlyphDrawing::Outlines);
    ~ScorePainter();

    void setInk(const QColor &colour) { _ink = colour; }

    /// Paints what is on a sheet in units of the layout, whose upper left corner is the painter's
    /// origin: the caller scales the painter. Only what meets `exposed` is painted; an empty box
    /// means all. Raises `CoreException` when there is no such page.
    void paintPage(QPainter &painter, const layout::Layout &layout, std::size_t page,
                   const layout::Box &exposed = {});

    ScorePainter(const ScorePainter &) = delete;
    ScorePainter &operator=(const ScorePainter &) = delete;

private:
    struct Caches;

    GlyphDrawing _glyphs;
    QColor _ink{Qt::black};
    std::unique_ptr<Caches> _caches;
};

} // namespace zarn::views
