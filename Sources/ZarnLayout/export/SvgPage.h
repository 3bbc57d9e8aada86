// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/export/ZarnSvgWriter.h>

#include <QByteArray>
#include <QXmlStreamWriter>

#include <map>
#include <set>
#include <utility>

namespace zarn::layout {

/// Writes one sheet.
class SvgPage {
public:
    SvgPage(const Layout &layout, const LayoutPage &page, SvgText text);

    QByteArray write();

private:
    /// A face of the text font and a glyph's number in it.
    using TextGlyph = std::pair<TextFace, std::uint32_t>;
    /// One that is a text of its own, and its size.
    using TextSign = std::pair<TextGlyph, Unit>;

    void collectSymbols(const DrawList &list);
    void writeSymbols();
    void writeSymbol(GlyphId glyph);
    void writeList(const DrawList &list);
    void writeGlyph(const DrawMark &mark);
    /// Lines of one place and kind; `areLevel`: all horizontal and of one thickness.
    void writeLines(const DrawMark *lines, std::size_t count, bool areLevel);
    void writeDashes(const DrawMark &mark);
    void writePath(const DrawList &list, const DrawMark &mark);
    void writeText(const DrawList &list, const DrawMark &mark);
    void writeCharacters(const DrawList::Text &text, const QString &characters, Point at);
    void writeUse(const QString &id, Point at, const QString &transform);
    void writeMeaning(const DrawMark &mark);

    const Layout &_layout;
    const LayoutPage &_page;
    SvgText _text;
    Unit _usualStroke = 0; ///< that the group around has; 0 for none
    QByteArray _bytes;
    QXmlStreamWriter _xml;
    std::set<GlyphId> _glyphs;
    std::map<TextGlyph, QString> _textGlyphs;
    std::map<TextSign, QString> _signs;
};

} // namespace zarn::layout
