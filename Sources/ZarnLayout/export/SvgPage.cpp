// SPDX-License-Identifier: MIT
#include <ZarnLayout/export/SvgPage.h>

#include <ZarnLayout/draw/ZarnDrawListBuilder.h>
#include <ZarnLayout/export/SvgPathData.h>
#include <ZarnLayout/font/ZarnFontOutlines.h>

#include <algorithm>
#include <array>

namespace zarn::layout {
namespace {

QString latin(std::string_view text)
{
    return QString::fromLatin1(text.data(), static_cast<int>(text.size()));
}

/// UTF-8 without the characters that XML 1.0 cannot hold.
QString xmlText(std::string_view text)
{
    QString result = QString::fromUtf8(text.data(), static_cast<int>(text.size()));
    for (QChar &character : result)
        if (character.unicode() < 0x20 || character.unicode() == 0xFFFE
            || character.unicode() == 0xFFFF)
            character = character.isSpace() ? QLatin1Char(' ') : QChar(QChar::ReplacementCharacter);
    return result;
}

/// At most four digits behind the point, as few as will do.
QString decimal(double value)
{
    QString text = QString::number(value, 'f', 4);
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text;
}

/// What is drawn at a point, whose units are the layout's.
QString translated(Point by)
{
    const Point user = inUserUnits(by);
    return QStringLiteral("translate(%1 %2)").arg(user.x).arg(user.y);
}

QString number(Unit length)
{
    return QString::number(inUserUnits(length));
}

/// "0,3,0,0,2": what stands behind the last number that applies is left out.
QString placeText(const DrawPlace &place)
{
    const std::array<int, 6> numbers{place.track, place.bar,  place.staff,
                                     place.voice, place.beat, place.note};
    const auto last =
        std::find_if(numbers.rbegin(), numbers.rend(), [](int number) { return number >= 0; });
    QString text;
    for (auto number = numbers.begin(); number != last.base(); ++number) {
        if (number != numbers.begin())
            text += QLatin1Char(',');
        if (*number >= 0)
            text += QString::number(*number);
    }
    return text;
}

/// The marks of a voice in a bar stand in one line of the file.
bool areInOneLine(const DrawPlace &left, const DrawPlace &right)
{
    return left.track == right.track && left.bar == right.bar && left.staff == right.staff
        && left.voice == right.voice;
}

/// One that is drawn as a filled shape.
bool isPlainLine(const DrawMark &mark)
{
    return mark.shape == MarkShape::Line && mark.detail == 0 && mark.cap == LineCap::Flat;
}

/// Font units to user units; SMuFL's em is four staff spaces, and fonts grow upwards.
QString musicSymbolTransform(const FontOutlines &font)
{
    const double scale = 4.0 * staffSpace / unitsPerUserUnit / font.unitsPerEm();
    return QStringLiteral("scale(%1 -%1)").arg(decimal(scale));
}

QString textScale(TextFace face, Unit size)
{
    const double scale =
        static_cast<double>(size) / unitsPerUserUnit / FontOutlines::text(face).unitsPerEm();
    return QStringLiteral("scale(%1 -%1)").arg(decimal(scale));
}

/// A fret, the number of a bar: they are many, and short to write.
bool isOneGlyph(const std::vector<SetGlyph> &set)
{
    return set.size() == 1 && set.front().x == 0 && set.front().y == 0;
}

/// How thick ledger lines are; 0 where there are none.
Unit ledgerOf(const DrawList &list)
{
    const auto &marks = list.marks();
    const auto ledger = std::find_if(marks.begin(), marks.end(), [](const DrawMark &mark) {
        return mark.kind == MarkKind::LedgerLine;
    });
    return ledger == marks.end() ? 0 : ledger->thickness;
}

/// Pieces of horizontal lines of one thickness: the lines of a staff, cut where frets stand.
bool isLevel(const DrawMark &line)
{
    return line.at.y == line.to.y && line.thickness > 0;
}

} // namespace

SvgPage::SvgPage(const Layout &layout, const LayoutPage &page, SvgText text)
    : _layout(layout), _page(page), _text(text), _xml(&_bytes)
{
}

QByteArray SvgPage::write()
{
    if (_page.marks != nullptr)
        collectSymbols(*_page.marks);
    for (const PlacedSystem &system : _page.systems)
        collectSymbols(system.drawing->marks);

    _xml.writeStartDocument();
    _xml.writeStartElement(QStringLiteral("svg"));
    _xml.writeDefaultNamespace(QStringLiteral("http://www.w3.org/2000/svg"));
    _xml.writeNamespace(QStringLiteral("http://www.w3.org/1999/xlink"), QStringLiteral("xlink"));
    _xml.writeAttribute(QStringLiteral("version"), QStringLiteral("1.1"));
    _xml.writeAttribute(QStringLiteral("width"),
                        decimal(_page.width / 1000.0) + QStringLiteral("mm"));
    _xml.writeAttribute(QStringLiteral("height"),
                        decimal(_page.height / 1000.0) + QStringLiteral("mm"));
    _xml.writeAttribute(QStringLiteral("viewBox"),
                        QStringLiteral("0 0 %1 %2")
                            .arg(number(_layout.fromMicrometres(_page.width)),
                                 number(_layout.fromMicrometres(_page.height))));
    if (!_layout.title().empty())
        _xml.writeTextElement(QStringLiteral("title"), xmlText(_layout.title()));
    writeSymbols();
    if (_page.marks != nullptr) {
        _xml.writeStartElement(QStringLiteral("g"));
        writeList(*_page.marks);
        _xml.writeEndElement();
    }
    for (const PlacedSystem &system : _page.systems) {
        _xml.writeCharacters(QStringLiteral("\n"));
        _xml.writeStartElement(QStringLiteral("g"));
        _xml.writeAttribute(QStringLiteral("class"), QStringLiteral("system"));
        _xml.writeAttribute(QStringLiteral("transform"), translated(system.at));
        _usualStroke = ledgerOf(system.drawing->marks);
        if (_usualStroke > 0)
            _xml.writeAttribute(QStringLiteral("stroke-width"), number(_usualStroke));
        writeList(system.drawing->marks);
        _usualStroke = 0;
        _xml.writeEndElement();
    }
    _xml.writeCharacters(QStringLiteral("\n"));
    _xml.writeEndElement();
    _xml.writeEndDocument();
    return _bytes;
}

void SvgPage::collectSymbols(const DrawList &list)
{
    for (const DrawMark &mark : list.marks()) {
        if (mark.shape == MarkShape::Glyph)
            _glyphs.insert(mark.glyph);
        if (mark.shape != MarkShape::Text || _text != SvgText::Outlines)
            continue;
        const TextFace face = list.textOf(mark).style.face;
        const auto set = FontOutlines::text(face).set(list.characters(mark));
        if (!set)
            continue;
        for (const SetGlyph &glyph : *set)
            _textGlyphs.emplace(TextGlyph(face, glyph.glyph), QString());
        if (isOneGlyph(*set))
            _signs.emplace(
                TextSign(TextGlyph(face, set->front().glyph), list.textOf(mark).style.size),
                QString());
    }
}

void SvgPage::writeSymbols()
{
    _xml.writeCharacters(QStringLiteral("\n"));
    _xml.writeStartElement(QStringLiteral("defs"));
    for (const GlyphId glyph : _glyphs)
        writeSymbol(glyph);
    int count = 0;
    static constexpr std::array<char, 4> faceLetters{'r', 'i', 'b', 'z'};
    for (auto &[glyph, id] : _textGlyphs) {
        const QString outline = svgPathData(FontOutlines::text(glyph.first).outline(glyph.second));
        if (outline.isEmpty())
            continue; // a blank
        id = QLatin1Char(faceLetters[static_cast<std::size_t>(glyph.first)])
            + QString::number(glyph.second);
        _xml.writeStartElement(QStringLiteral("path"));
        _xml.writeAttribute(QStringLiteral("id"), id);
        _xml.writeAttribute(QStringLiteral("d"), outline);
        _xml.writeEndElement();
    }
    for (auto &[sign, id] : _signs) {
        const auto &[glyph, size] = sign;
        const QString &outline = _textGlyphs.at(glyph);
        if (outline.isEmpty())
            continue;
        id = QLatin1Char('t') + QString::number(++count);
        _xml.writeEmptyElement(QStringLiteral("use"));
        _xml.writeAttribute(QStringLiteral("id"), id);
        _xml.writeAttribute(QStringLiteral("xlink:href"), QLatin1Char('#') + outline);
        _xml.writeAttribute(QStringLiteral("transform"), textScale(glyph.first, size));
    }
    _xml.writeEndElement();
}

void SvgPage::writeSymbol(GlyphId glyph)
{
    const MusicFont &font = _layout.font();
    const FontOutlines &outlines = font.outlines(glyph);
    const auto number = outlines.glyphOf(font.codePoint(glyph));
    const QString outline = number ? svgPathData(outlines.outline(*number)) : QString();
    _xml.writeStartElement(QStringLiteral("symbol"));
    _xml.writeAttribute(QStringLiteral("id"), latin(font.name(glyph)));
    _xml.writeAttribute(QStringLiteral("overflow"), QStringLiteral("visible"));
    _xml.writeEmptyElement(QStringLiteral("path"));
    _xml.writeAttribute(QStringLiteral("transform"), musicSymbolTransform(outlines));
    _xml.writeAttribute(QStringLiteral("d"), outline);
    _xml.writeEndElement();
}

void SvgPage::writeList(const DrawList &list)
{
    const std::vector<DrawMark> &marks = list.marks();
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const DrawMark &mark = marks[i];
        if (i == 0 || !areInOneLine(mark.place, marks[i - 1].place))
            _xml.writeCharacters(QStringLiteral("\n"));
        switch (mark.shape) {
        case MarkShape::Glyph:
            writeGlyph(mark);
            break;
        case MarkShape::Line:
            if (isPlainLine(mark)) {
                // The lines of a staff, the ledger lines of a chord: one element each.
                const std::size_t first = i;
                bool areLevel = isLevel(mark);
                while (i + 1 < marks.size() && isPlainLine(marks[i + 1])
                       && marks[i + 1].kind == mark.kind && marks[i + 1].place == mark.place) {
                    ++i;
                    areLevel =
                        areLevel && isLevel(marks[i]) && marks[i].thickness == mark.thickness;
                }
                writeLines(marks.data() + first, i + 1 - first, areLevel);
            } else {
                writeDashes(mark);
            }
            break;
        case MarkShape::Path:
            writePath(list, mark);
            break;
        case MarkShape::Text:
            writeText(list, mark);
            break;
        }
    }
}

void SvgPage::writeGlyph(const DrawMark &mark)
{
    QString transform;
    if (mark.to != GlyphForm().scale || mark.detail != 0) {
        transform = translated(mark.at);
        if (mark.detail != 0)
            transform += QStringLiteral(" rotate(%1)").arg(-90 * static_cast<int>(mark.detail));
        transform += QStringLiteral(" scale(%1 %2)")
                         .arg(decimal(mark.to.x / 1024.0), decimal(mark.to.y / 1024.0));
    }
    writeUse(latin(_layout.font().name(mark.glyph)), mark.at, transform);
    writeMeaning(mark);
}

void SvgPage::writeUse(const QString &id, Point at, const QString &transform)
{
    _xml.writeEmptyElement(QStringLiteral("use"));
    _xml.writeAttribute(QStringLiteral("xlink:href"), QLatin1Char('#') + id);
    if (transform.isEmpty()) {
        _xml.writeAttribute(QStringLiteral("x"), number(at.x));
        _xml.writeAttribute(QStringLiteral("y"), number(at.y));
    } else {
        _xml.writeAttribute(QStringLiteral("transform"), transform);
    }
}

void SvgPage::writeLines(const DrawMark *lines, std::size_t count, bool areLevel)
{
    // As shapes; many level ones are shorter as strokes.
    const bool isUsual = lines->thickness == _usualStroke;
    const std::size_t many = isUsual ? 2 : 5;
    const bool areStrokes = areLevel && count >= many;
    _xml.writeEmptyElement(QStringLiteral("path"));
    QString data;
    if (areStrokes)
        data = svgStrokeData(lines, count);
    else
        for (std::size_t i = 0; i < count; ++i)
            data += svgLineData(lines[i]);
    _xml.writeAttribute(QStringLiteral("d"), data);
    if (areStrokes) {
        _xml.writeAttribute(QStringLiteral("stroke"), QStringLiteral("#000"));
        if (!isUsual)
            _xml.writeAttribute(QStringLiteral("stroke-width"), number(lines->thickness));
    }
    writeMeaning(*lines);
}

void SvgPage::writeDashes(const DrawMark &mark)
{
    _xml.writeEmptyElement(QStringLiteral("path"));
    _xml.writeAttribute(
        QStringLiteral("d"),
        QStringLiteral("M%1 %2L%3 %4")
            .arg(number(mark.at.x), number(mark.at.y), number(mark.to.x), number(mark.to.y)));
    _xml.writeAttribute(QStringLiteral("stroke"), QStringLiteral("#000"));
    _xml.writeAttribute(QStringLiteral("stroke-width"), number(mark.thickness));
    if (mark.detail != 0)
        _xml.writeAttribute(QStringLiteral("stroke-dasharray"),
                            QStringLiteral("%1 %2").arg(number(mark.detail), number(mark.gap)));
    if (mark.cap == LineCap::Round)
        _xml.writeAttribute(QStringLiteral("stroke-linecap"), QStringLiteral("round"));
    writeMeaning(mark);
}

void SvgPage::writePath(const DrawList &list, const DrawMark &mark)
{
    _xml.writeEmptyElement(QStringLiteral("path"));
    _xml.writeAttribute(QStringLiteral("d"), svgPathData(list, mark));
    if (mark.thickness != 0) {
        _xml.writeAttribute(QStringLiteral("fill"), QStringLiteral("none"));
        _xml.writeAttribute(QStringLiteral("stroke"), QStringLiteral("#000"));
        _xml.writeAttribute(QStringLiteral("stroke-width"), number(mark.thickness));
    }
    writeMeaning(mark);
}

void SvgPage::writeText(const DrawList &list, const DrawMark &mark)
{
    const DrawList::Text &text = list.textOf(mark);
    const QString characters = xmlText(list.characters(mark));
    const FontOutlines &font = FontOutlines::text(text.style.face);
    const auto set = _text == SvgText::Outlines ? font.set(list.characters(mark)) : std::nullopt;
    if (!set) {
        _xml.writeStartElement(QStringLiteral("text"));
        writeMeaning(mark);
        _xml.writeAttribute(QStringLiteral("data-text"), characters);
        writeCharacters(text, characters, mark.at);
        _xml.writeEndElement();
        return;
    }
    if (isOneGlyph(*set)) {
        const QString &id =
            _signs.at(TextSign(TextGlyph(text.style.face, set->front().glyph), text.style.size));
        if (!id.isEmpty()) {
            writeUse(id, mark.at, QString());
            writeMeaning(mark);
            _xml.writeAttribute(QStringLiteral("data-text"), characters);
            return;
        }
    }
    _xml.writeStartElement(QStringLiteral("g"));
    _xml.writeAttribute(QStringLiteral("transform"),
                        translated(mark.at) + textScale(text.style.face, text.style.size));
    writeMeaning(mark);
    _xml.writeAttribute(QStringLiteral("data-text"), characters);
    for (const SetGlyph &glyph : *set) {
        const QString &id = _textGlyphs.at(TextGlyph(text.style.face, glyph.glyph));
        if (id.isEmpty())
            continue;
        _xml.writeEmptyElement(QStringLiteral("use"));
        _xml.writeAttribute(QStringLiteral("xlink:href"), QLatin1Char('#') + id);
        if (glyph.x != 0)
            _xml.writeAttribute(QStringLiteral("x"), QString::number(glyph.x));
        if (glyph.y != 0)
            _xml.writeAttribute(QStringLiteral("y"), QString::number(glyph.y));
    }
    _xml.writeEndElement();
}

/// What the font lacks comes from another font of the reader's; it is drawn as long as the layout
/// thinks it is.
void SvgPage::writeCharacters(const DrawList::Text &text, const QString &characters, Point at)
{
    _xml.writeAttribute(QStringLiteral("x"), number(at.x));
    _xml.writeAttribute(QStringLiteral("y"), number(at.y));
    _xml.writeAttribute(QStringLiteral("font-family"), QStringLiteral("Edwin, serif"));
    _xml.writeAttribute(QStringLiteral("font-size"),
                        decimal(static_cast<double>(text.style.size) / unitsPerUserUnit));
    if (text.style.face == TextFace::Italic || text.style.face == TextFace::BoldItalic)
        _xml.writeAttribute(QStringLiteral("font-style"), QStringLiteral("italic"));
    if (text.style.face == TextFace::Bold || text.style.face == TextFace::BoldItalic)
        _xml.writeAttribute(QStringLiteral("font-weight"), QStringLiteral("bold"));
    if (text.advance > 0) {
        _xml.writeAttribute(QStringLiteral("textLength"), number(text.advance));
        _xml.writeAttribute(QStringLiteral("lengthAdjust"), QStringLiteral("spacingAndGlyphs"));
    }
    _xml.writeAttribute(QStringLiteral("xml:space"), QStringLiteral("preserve"));
    _xml.writeCharacters(characters);
}

void SvgPage::writeMeaning(const DrawMark &mark)
{
    _xml.writeAttribute(QStringLiteral("data-kind"), latin(markKindText(mark.kind)));
    const QString place = placeText(mark.place);
    if (!place.isEmpty())
        _xml.writeAttribute(QStringLiteral("data-place"), place);
}

} // namespace zarn::layout
