// SPDX-License-Identifier: MIT
#include <ZarnLayout/export/SvgPathData.h>

#include <ZarnLayout/draw/PathWalk.h>

#include <cmath>

namespace zarn::layout {
namespace {

class PathText {
public:
    void begin(Point point)
    {
        _text += QLatin1Char(_isFirst ? 'M' : 'm');
        const Point from = _isFirst ? Point() : _last;
        _isFirst = false;
        _isFresh = true;
        add(point.x - from.x);
        add(point.y - from.y);
        _last = _start = point;
    }

    void line(Point point)
    {
        if (point == _last)
            return;
        if (point.y == _last.y) {
            command('h');
            add(point.x - _last.x);
        } else if (point.x == _last.x) {
            command('v');
            add(point.y - _last.y);
        } else {
            command('l');
            add(point.x - _last.x);
            add(point.y - _last.y);
        }
        _last = point;
    }

    void curve(Point first, Point second, Point end)
    {
        command('c');
        for (const Point &point : {first, second, end}) {
            add(point.x - _last.x);
            add(point.y - _last.y);
        }
        _last = end;
    }

    void close()
    {
        command('z');
        _last = _start;
    }

    const QString &text() const noexcept { return _text; }

    template <typename At>
    QString of(const PathVerb *verbs, std::size_t count, At at)
    {
        walkPath(verbs, count, at, *this);
        return _text;
    }

private:
    void command(char letter)
    {
        _text += QLatin1Char(letter);
        _isFresh = true;
    }

    /// A minus parts numbers by itself.
    void add(Unit number)
    {
        if (!_isFresh && number >= 0)
            _text += QLatin1Char(' ');
        _text += QString::number(number);
        _isFresh = false;
    }

    QString _text;
    Point _last;
    Point _start;
    bool _isFirst = true;
    bool _isFresh = true;
};

} // namespace

QString svgPathData(const GlyphOutline &outline)
{
    return PathText().of(outline.verbs.data(), outline.verbs.size(), [&](std::size_t index) {
        return Point{static_cast<Unit>(std::lround(outline.points[index].x)),
                     static_cast<Unit>(std::lround(outline.points[index].y))};
    });
}

QString svgPathData(const DrawList &list, const DrawMark &path)
{
    const DrawList::Path &outline = list.path(path);
    return PathText().of(list.verbs().data() + outline.firstVerb, outline.verbCount,
                         [points = list.points().data() + outline.firstPoint](std::size_t index) {
                             return points[index];
                         });
}

QString svgStrokeData(const DrawMark *lines, std::size_t count)
{
    QString data;
    Point last;
    for (std::size_t i = 0; i < count; ++i) {
        const DrawMark &line = lines[i];
        data += i == 0 ? QStringLiteral("M%1 %2").arg(line.at.x).arg(line.at.y)
                       : QStringLiteral("m%1 %2").arg(line.at.x - last.x).arg(line.at.y - last.y);
        data += QStringLiteral("h%1").arg(line.to.x - line.at.x);
        last = line.to;
    }
    return data;
}

QString svgLineData(const DrawMark &line)
{
    const double length = std::hypot(line.to.x - line.at.x, line.to.y - line.at.y);
    if (length == 0)
        return {};
    // Half the thickness across the line, to its left; the other side gets what rounding left.
    const double half = line.thickness / 2.0;
    const Point left{static_cast<Unit>(std::floor((line.to.y - line.at.y) / length * half)),
                     static_cast<Unit>(std::floor((line.at.x - line.to.x) / length * half))};
    const Point across{
        static_cast<Unit>(std::lround((line.at.y - line.to.y) / length * line.thickness)),
        static_cast<Unit>(std::lround((line.to.x - line.at.x) / length * line.thickness))};
    PathText text;
    text.begin(line.at + left);
    text.line(line.to + left);
    text.line(line.to + left + across);
    text.line(line.at + left + across);
    text.close();
    return text.text();
}

} // namespace zarn::layout
