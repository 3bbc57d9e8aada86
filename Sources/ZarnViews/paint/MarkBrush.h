// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnViews/paint/GlyphPaths.h>
#include <ZarnViews/paint/ZarnScorePainter.h>

#include <QBrush>
#include <QGlyphRun>
#include <QLineF>
#include <QPen>
#include <QRawFont>
#include <QVector>

#include <map>
#include <utility>

class QPainter;

namespace zarn::views {

/// Paints the marks of draw lists.
class MarkBrush {
public:
    MarkBrush(QPainter &painter, const layout::MusicFont &font, GlyphPaths &paths,
              GlyphDrawing glyphs, const QColor &ink);

    /// Those that meet the box, or all for an empty one.
    void paint(const layout::DrawList &list, const layout::Box &exposed);

private:
    void paintGlyph(const layout::DrawMark &mark);
    const QGlyphRun &musicRun(layout::GlyphId glyph, int pixels);
    void paintLine(const layout::DrawMark &mark);
    void paintLines();
    void paintPath(const layout::DrawList &list, const layout::DrawMark &mark);
    void paintText(const layout::DrawList &list, const layout::DrawMark &mark);
    void paintCharacters(const layout::DrawList::Text &text, const QString &characters,
                         layout::Point at);

    /// Sets a pen unless it is set: what is written to documents for it would double their size.
    void usePen(const QPen &pen);
    /// The same for a face of the text font.
    void useFont(int face, int pixels);

    QPainter &_painter;
    const layout::MusicFont &_font;
    GlyphPaths &_paths;
    GlyphDrawing _glyphs;
    QBrush _ink;
    QPen _pen;
    std::map<layout::Unit, QVector<QLineF>> _lines; ///< that wait for others of their thickness
    std::map<int, QRawFont> _musicFonts;            ///< by pixels to the em
    std::map<std::pair<int, layout::GlyphId>, QGlyphRun> _musicRuns; ///< by pixels and sign
    int _fontFace = -1;                                              ///< none yet
    int _fontPixels = 0;
};

} // namespace zarn::views
