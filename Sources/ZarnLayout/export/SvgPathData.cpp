// SPDX-License-Identifier: MIT
#include <ZarnLayout/export/SvgPathData.h>

#include <ZarnLayout/draw/PathWalk.h>

#include <algorithm>
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
        _isBehindCurve = false;
        add(point.x - from.x);
        add(point.y - from.y);
        _last = _start = point;
    }

    void line(Point point)
    {
        if (point == _last)
            return;
        if (point.y == _last.y) {
            straight('h', 'H', point.x, _last.x);
        } else if (point.x == _last.x) {
            straight('v', 'V', point.y, _last.y);
        } else {
            command('l');
            add(point.x - _last.x);
            add(point.y - _last.y);
        }
        _last = point;
    }

    void curve(Point first, Point second, Point end)
    {
        // One that goes on as smoothly as the last one ended does not repeat its first handle.
        const bool isSmooth = _isBehindCurve && first - _last == _last - _handle;
        command(isSmooth ? 's' : 'c');
        if (!isSmooth)
            addStep(first);
        addStep(second);
        addStep(end);
        _last = end;
        _handle = second;
        _isBehindCurve = true;
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
        _isBehindCurve = false;
    }

    /// As far as it goes, or to where, whichever is shorter.
    void straight(char step, char place, Unit to, Unit from)
    {
        const bool isStep = QString::number(to - from).size() <= QString::number(to).size();
        command(isStep ? step : place);
        add(isStep ? to - from : to);
    }

    void addStep(Point to)
    {
        add(to.x - _last.x);
        add(to.y - _last.y);
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
    Point _handle; ///< the second of the last curve
    bool _isBehindCurve = false;
    bool _isFirst = true;
    bool _isFresh = true;
};

} // namespace

Unit inUserUnits(Unit length) noexcept
{
    return static_cast<Unit>(std::lround(static_cast<double>(length) / unitsPerUserUnit));
}

Point inUserUnits(Point point) noexcept
{
    return {inUserUnits(point.x), inUserUnits(point.y)};
}

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
                             return inUserUnits(points[index]);
                         });
}

QString svgStrokeData(const DrawMark *lines, std::size_t count)
{
    QString data;
    Point last;
    for (std::size_t i = 0; i < count; ++i) {
        // There and back again: the way from one to the next is short.
        const bool goesBack = i % 2 == 1;
        const Point from = inUserUnits(goesBack ? lines[i].to : lines[i].at);
        const Point to = inUserUnits(goesBack ? lines[i].at : lines[i].to);
        const Point step = from - last;
        data += QStringLiteral("%1%2%3%4h%5")
                    .arg(i == 0 ? QLatin1Char('M') : QLatin1Char('m'))
                    .arg(step.x)
                    .arg(step.y < 0 ? QString() : QStringLiteral(" "))
                    .arg(step.y)
                    .arg(to.x - from.x);
        last = to;
    }
    return data;
}

QString svgLineData(const DrawMark &line)
{
    const Point at = inUserUnits(line.at);
    const Point to = inUserUnits(line.to);
    const Unit thickness = std::max<Unit>(1, inUserUnits(line.thickness));
    const double length = std::hypot(to.x - at.x, to.y - at.y);
    if (length == 0)
        return {};
    // Half the thickness across the line, to its left; the other side gets what rounding left.
    const double half = thickness / 2.0;
    const Point left{static_cast<Unit>(std::floor((to.y - at.y) / length * half)),
                     static_cast<Unit>(std::floor((at.x - to.x) / length * half))};
    const Point across{static_cast<Unit>(std::lround((at.y - to.y) / length * thickness)),
                       static_cast<Unit>(std::lround((to.x - at.x) / length * thickness))};
    PathText text;
    text.begin(at + left);
    text.line(to + left);
    text.line(to + left + across);
    text.line(at + left + across); // what is filled need not be closed
    return text.text();
}

} // namespace zarn::layout
