// SPDX-License-Identifier: MIT
#include <ZarnLayout/draw/ZarnPolygons.h>

#include <ZarnLayout/draw/PathWalk.h>
#include <ZarnLayout/font/ZarnFontOutlines.h>

#include <cmath>
#include <cstddef>

namespace zarn::layout {
namespace {

struct Spot {
    double x = 0;
    double y = 0;
};

/// Walks along verbs and points, whatever numbers the points hold.
class PolygonMaker {
public:
    explicit PolygonMaker(int steps) : _steps(steps) { }

    template <typename At>
    std::vector<Polygon> make(const PathVerb *verbs, std::size_t count, At at)
    {
        walkPath(verbs, count, at, *this);
        finish();
        return std::move(_polygons);
    }

    void begin(Spot spot)
    {
        finish();
        add(spot);
    }
    void line(Spot spot) { add(spot); }
    void close() { finish(); }

    void curve(Spot first, Spot second, Spot end)
    {
        const Spot begin = _last;
        for (int step = 1; step <= _steps; ++step) {
            const double t = static_cast<double>(step) / _steps;
            const double s = 1 - t;
            const auto mixed = [&](double a, double b, double c, double d) {
                return s * s * s * a + 3 * s * s * t * b + 3 * s * t * t * c + t * t * t * d;
            };
            add({mixed(begin.x, first.x, second.x, end.x),
                 mixed(begin.y, first.y, second.y, end.y)});
        }
    }

private:
    void add(Spot spot)
    {
        _last = spot;
        const Point point{static_cast<Unit>(std::lround(spot.x)),
                          static_cast<Unit>(std::lround(spot.y))};
        if (_current.empty() || _current.back() != point)
            _current.push_back(point);
    }

    void finish()
    {
        if (_current.size() > 1)
            _polygons.push_back(std::move(_current));
        _current.clear();
    }

    int _steps;
    Spot _last;
    Polygon _current;
    std::vector<Polygon> _polygons;
};

} // namespace

std::vector<Polygon> polygonsOf(const DrawList &list, const DrawMark &path, int steps)
{
    const DrawList::Path &outline = list.path(path);
    const Point *points = list.points().data() + outline.firstPoint;
    return PolygonMaker(steps).make(
        list.verbs().data() + outline.firstVerb, outline.verbCount, [points](std::size_t index) {
            return Spot{static_cast<double>(points[index].x), static_cast<double>(points[index].y)};
        });
}

std::vector<Polygon> polygonsOf(const MusicFont &font, GlyphId glyph, int steps)
{
    const FontOutlines &outlines = font.outlines(glyph);
    const auto number = outlines.glyphOf(font.codePoint(glyph));
    if (!number)
        return {};
    const GlyphOutline outline = outlines.outline(*number);
    // SMuFL: an em is four staff spaces.
    const double scale = 4.0 * staffSpace / outlines.unitsPerEm();
    return PolygonMaker(steps).make(
        outline.verbs.data(), outline.verbs.size(), [&outline, scale](std::size_t index) {
            return Spot{outline.points[index].x * scale, -outline.points[index].y * scale};
        });
}

} // namespace zarn::layout
