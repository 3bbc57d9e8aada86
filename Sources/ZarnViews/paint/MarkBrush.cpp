// SPDX-License-Identifier: MIT
#include <ZarnViews/paint/MarkBrush.h>

#include <ZarnLayout/draw/ZarnDrawListBuilder.h>
#include <ZarnViews/paint/ViewFonts.h>

#include <QFontMetricsF>
#include <QPainter>
#include <QPen>

namespace zarn::views {

using layout::Box;
using layout::DrawList;
using layout::DrawMark;
using layout::MarkShape;

MarkBrush::MarkBrush(QPainter &painter, const layout::MusicFont &font, GlyphPaths &paths,
                     GlyphDrawing glyphs, const QColor &ink)
    : _painter(painter), _font(font), _paths(paths), _glyphs(glyphs), _ink(ink)
{
    _painter.setBrush(Qt::NoBrush);
    _pen = QPen(ink);
    _painter.setPen(_pen);
}

void MarkBrush::usePen(const QPen &pen)
{
    if (pen == _pen)
        return;
    _pen = pen;
    _painter.setPen(pen);
}

void MarkBrush::paint(const DrawList &list, const Box &exposed)
{
    for (const DrawMark &mark : list.marks()) {
        if (!exposed.isEmpty() && !list.box(mark, _font).overlaps(exposed))
            continue;
        switch (mark.shape) {
        case MarkShape::Glyph:
            paintGlyph(mark);
            break;
        case MarkShape::Line:
            paintLine(mark);
            break;
        case MarkShape::Path:
            paintPath(list, mark);
            break;
        case MarkShape::Text:
            paintText(list, mark);
            break;
        }
    }
    paintLines();
}

void MarkBrush::paintGlyph(const DrawMark &mark)
{
    const bool isUpright = mark.detail == 0 && mark.to.x == mark.to.y;
    const bool isBuiltIn = &_font.outlines(mark.glyph) == &layout::FontOutlines::music();
    if (_glyphs == GlyphDrawing::Fonts && isUpright && isBuiltIn) {
        // SMuFL: an em is four staff spaces, so scales in 1/1024 are a fourth of the em in units.
        _painter.drawGlyphRun(QPointF(mark.at.x, mark.at.y), musicRun(mark.glyph, 4 * mark.to.x));
        return;
    }
    const QPainterPath &path = _paths.music(_font, mark.glyph);
    const QTransform before = _painter.transform();
    _painter.translate(mark.at.x, mark.at.y);
    if (mark.detail != 0)
        _painter.rotate(-90.0 * mark.detail);
    if (mark.to != layout::GlyphForm().scale)
        _painter.scale(mark.to.x / 1024.0, mark.to.y / 1024.0);
    _painter.fillPath(path, _ink);
    _painter.setTransform(before);
}

/// A sign needs no shaping, which would take a third of the time of a page.
const QGlyphRun &MarkBrush::musicRun(layout::GlyphId glyph, int pixels)
{
    QGlyphRun &run = _musicRuns[{pixels, glyph}];
    if (!run.isEmpty())
        return run;
    QRawFont &font = _musicFonts[pixels];
    if (!font.isValid())
        font = QRawFont::fromFont(ViewFonts::instance().music(pixels));
    const char32_t codePoint = _font.codePoint(glyph);
    run.setRawFont(font);
    run.setGlyphIndexes(font.glyphIndexesForString(QString::fromUcs4(&codePoint, 1)));
    run.setPositions({QPointF()});
    return run;
}

void MarkBrush::paintLine(const DrawMark &mark)
{
    const QLineF line(mark.at.x, mark.at.y, mark.to.x, mark.to.y);
    if (mark.detail == 0 && mark.cap == layout::LineCap::Flat) {
        _lines[mark.thickness].push_back(line);
        return;
    }
    QPen pen(_ink, mark.thickness, Qt::SolidLine,
             mark.cap == layout::LineCap::Round ? Qt::RoundCap : Qt::FlatCap);
    if (mark.detail != 0 && mark.thickness > 0) // patterns count in thicknesses
        pen.setDashPattern({static_cast<qreal>(mark.detail) / mark.thickness,
                            std::max(0.01, static_cast<qreal>(mark.gap) / mark.thickness)});
    usePen(pen);
    _painter.drawLine(line);
}

/// All plain lines of a list at once, thickness by thickness: staff lines, stems and ledger lines
/// are most of its marks, and one path is shorter in a PDF than many.
void MarkBrush::paintLines()
{
    for (auto &[thickness, lines] : _lines) {
        if (lines.isEmpty())
            continue;
        usePen(QPen(_ink, thickness, Qt::SolidLine, Qt::FlatCap));
        _painter.drawLines(lines);
        lines.clear();
    }
}

void MarkBrush::paintPath(const DrawList &list, const DrawMark &mark)
{
    const QPainterPath path = painterPath(list, mark);
    if (mark.thickness == 0) {
        _painter.fillPath(path, _ink);
        return;
    }
    _painter.strokePath(path,
                        QPen(_ink, mark.thickness, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
}

void MarkBrush::paintText(const DrawList &list, const DrawMark &mark)
{
    const DrawList::Text &text = list.textOf(mark);
    const auto characters = list.characters(mark);
    const auto set = layout::FontOutlines::text(text.style.face).set(characters);
    if (!set || _glyphs == GlyphDrawing::Fonts) {
        paintCharacters(text,
                        QString::fromUtf8(characters.data(), static_cast<int>(characters.size())),
                        mark.at);
        return;
    }
    const QTransform before = _painter.transform();
    _painter.translate(mark.at.x, mark.at.y);
    const double scale = text.style.size / 1000.0;
    _painter.scale(scale, scale);
    const double perUnit = 1000.0 / layout::FontOutlines::text(text.style.face).unitsPerEm();
    const QTransform origin = _painter.transform();
    for (const layout::SetGlyph &glyph : *set) {
        _painter.setTransform(origin);
        _painter.translate(glyph.x * perUnit, -glyph.y * perUnit);
        _painter.fillPath(_paths.text(text.style.face, glyph.glyph), _ink);
    }
    _painter.setTransform(before);
}

/// Fonts of the system may be wider than the layout thinks: the text keeps its room.
void MarkBrush::paintCharacters(const DrawList::Text &text, const QString &characters,
                                layout::Point at)
{
    const QFont font = ViewFonts::instance().text(text.style.face, text.style.size);
    const double width = QFontMetricsF(font).horizontalAdvance(characters);
    const QTransform before = _painter.transform();
    _painter.translate(at.x, at.y);
    if (width > text.advance + 2 && text.advance > 0)
        _painter.scale(text.advance / width, 1);
    if (_glyphs == GlyphDrawing::Fonts) {
        useFont(static_cast<int>(text.style.face), text.style.size);
        _painter.drawText(QPointF(0, 0), characters);
    } else {
        QPainterPath path;
        path.setFillRule(Qt::WindingFill);
        path.addText(QPointF(0, 0), font, characters);
        _painter.fillPath(path, _ink);
    }
    _painter.setTransform(before);
}

void MarkBrush::useFont(int face, int pixels)
{
    if (face == _fontFace && pixels == _fontPixels)
        return;
    _fontFace = face;
    _fontPixels = pixels;
    _painter.setFont(ViewFonts::instance().text(static_cast<layout::TextFace>(face), pixels));
}

} // namespace zarn::views
