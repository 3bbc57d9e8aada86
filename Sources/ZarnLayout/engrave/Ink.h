// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Few.h>
#include <ZarnLayout/engrave/InkTypes.h>
#include <ZarnLayout/engrave/Sign.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace zarn::engraving {

// Everything here is in staff spaces; y grows downwards, from the top line of its row.

struct Point {
    double x = 0;
    double y = 0;
};

/// Of a mark: two of a line, four of a beam or a curve.
using Points = Few<Point, 4>;

struct Box {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    double width() const noexcept { return right - left; }
    double height() const noexcept { return bottom - top; }
    bool isEmpty() const noexcept { return right <= left && bottom <= top; }
    Box movedBy(double x, double y) const noexcept
    {
        return {left + x, top + y, right + x, bottom + y};
    }
    void add(const Box &other) noexcept
    {
        left = std::min(left, other.left);
        top = std::min(top, other.top);
        right = std::max(right, other.right);
        bottom = std::max(bottom, other.bottom);
    }
    bool meets(const Box &other, double gap = 0) const noexcept
    {
        return left < other.right + gap && other.left < right + gap && top < other.bottom + gap
            && other.top < bottom + gap;
    }
};

/// One mark of ink, before it has its place on a page.
struct Ink {
    enum class Shape : std::uint8_t {
        Glyph,
        Line,    ///< from the first point to the last, all between them included
        Curve,   ///< a tie or slur: a Bezier curve of four points, thick in the middle
        Polygon, ///< filled
        Text,    ///< begins at the point
    };

    Shape shape = Shape::Glyph;
    MarkKind kind = MarkKind::Text;
    TextRole style = TextRole::Words;
    MarkPlace place;
    std::uint32_t glyph = 0;
    Point at;
    double scale = 1;       ///< of a glyph or text
    double stretch = 0;     ///< of a glyph across, where it is another one; 0 for the same
    double thickness = 0;   ///< of lines and of the middle of a curve
    double dash = 0;        ///< of lines and curves: length of dashes, 0 for none
    double gap = 0;         ///< between dashes
    int rows[2] = {-1, -1}; ///< of a line over rows: those its ends go with, -1 for the nearest
    Points points;
    std::string text; ///< UTF-8
    Box box;

    void move(double x, double y)
    {
        at.x += x;
        at.y += y;
        for (Point &point : points) {
            point.x += x;
            point.y += y;
        }
        box = box.movedBy(x, y);
    }
};

using Inks = std::vector<Ink>;

/// The box around all of them; empty for none.
inline Box boxOf(const Inks &inks)
{
    if (inks.empty())
        return {};
    Box box = inks.front().box;
    for (const Ink &ink : inks)
        box.add(ink.box);
    return box;
}

inline void move(Inks &inks, double x, double y)
{
    for (Ink &ink : inks)
        ink.move(x, y);
}

} // namespace zarn::engraving
