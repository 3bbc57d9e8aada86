// SPDX-License-Identifier: MIT
#include <ZarnViews/paint/GlyphPaths.h>

#include <ZarnLayout/draw/PathWalk.h>

namespace zarn::views {

using layout::FontOutlines;
using layout::GlyphOutline;
using layout::PathVerb;

namespace {

struct Pen {
    QPainterPath &path;

    void begin(const QPointF &point) { path.moveTo(point); }
    void line(const QPointF &point) { path.lineTo(point); }
    void curve(const QPointF &first, const QPointF &second, const QPointF &end)
    {
        path.cubicTo(first, second, end);
    }
    void close() { path.closeSubpath(); }
};

template <typename At>
QPainterPath pathOf(const PathVerb *verbs, std::size_t count, At at)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    Pen pen{path};
    layout::walkPath(verbs, count, at, pen);
    return path;
}

QPainterPath pathOf(const GlyphOutline &outline, double scale)
{
    return pathOf(outline.verbs.data(), outline.verbs.size(), [&](std::size_t index) {
        return QPointF(outline.points[index].x * scale, -outline.points[index].y * scale);
    });
}

} // namespace

const QPainterPath &GlyphPaths::music(const layout::MusicFont &font, layout::GlyphId glyph)
{
    if (font.serialNumber() != _musicFont) {
        _music.clear();
        _musicFont = font.serialNumber();
    }
    const char32_t codePoint = font.codePoint(glyph);
    const auto [entry, isNew] = _music.try_emplace(codePoint);
    if (isNew) {
        const FontOutlines &outlines = font.outlines(glyph);
        if (const auto number = outlines.glyphOf(codePoint))
            entry->second =
                pathOf(outlines.outline(*number), 4.0 * layout::staffSpace / outlines.unitsPerEm());
    }
    return entry->second;
}

const QPainterPath &GlyphPaths::text(layout::TextFace face, std::uint32_t glyph)
{
    const auto [entry, isNew] = _text.try_emplace({face, glyph});
    if (isNew) {
        const FontOutlines &outlines = FontOutlines::text(face);
        entry->second = pathOf(outlines.outline(glyph), 1000.0 / outlines.unitsPerEm());
    }
    return entry->second;
}

QPainterPath painterPath(const layout::DrawList &list, const layout::DrawMark &path)
{
    const layout::DrawList::Path &outline = list.path(path);
    const layout::Point *points = list.points().data() + outline.firstPoint;
    return pathOf(
        list.verbs().data() + outline.firstVerb, outline.verbCount,
        [points](std::size_t index) { return QPointF(points[index].x, points[index].y); });
}

} // namespace zarn::views
