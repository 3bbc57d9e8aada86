// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/ZarnLayoutExport.h>
#include <ZarnLayout/draw/ZarnDrawList.h>
#include <ZarnLayout/font/ZarnTextMeasure.h>

#include <initializer_list>
#include <string_view>
#include <vector>

namespace zarn::layout {

/// Dashes and the gaps between them; a default one is solid.
struct Dash {
    Unit length = 0;
    Unit gap = 0;
};

/// How a glyph is drawn: larger or smaller than in the font, and turned.
struct GlyphForm {
    /// Across and upwards, in 1/1024.
    Point scale{1024, 1024};
    /// Counter-clockwise, about the origin.
    unsigned quarterTurns = 0;

    static constexpr GlyphForm scaled(double factor) noexcept
    {
        return {{fromSpaces(factor), fromSpaces(factor)}, 0};
    }
};

/// An outline of straight lines and curves that is being drawn.
class ZARNLAYOUT_EXPORT PathShape {
public:
    PathShape &moveTo(Point point);
    PathShape &lineTo(Point point);
    PathShape &curveTo(Point firstControl, Point secondControl, Point end);
    PathShape &close();

    static PathShape polygon(const std::vector<Point> &corners);
    static PathShape rectangle(const Box &box);
    /// Four curves, within 0.03 % of a circle.
    static PathShape circle(Point centre, Unit radius);

private:
    friend class DrawListBuilder;
    std::vector<Point> _points;
    std::vector<PathVerb> _verbs;
};

/// Collects marks for a `DrawList`.
class ZARNLAYOUT_EXPORT DrawListBuilder {
public:
    DrawListBuilder();
    ~DrawListBuilder();

    void glyph(MarkKind kind, const DrawPlace &place, GlyphId glyph, Point at,
               const GlyphForm &form = {});
    void line(MarkKind kind, const DrawPlace &place, Point from, Point to, Unit thickness,
              Dash dash = {}, LineCap cap = LineCap::Flat);
    /// The inside of the path; where it crosses itself, whatever it winds around.
    void fill(MarkKind kind, const DrawPlace &place, const PathShape &path);
    void stroke(MarkKind kind, const DrawPlace &place, const PathShape &path, Unit thickness);
    /// One line of text in UTF-8 from the left end of its base line on. `extent` is what the text
    /// was measured as.
    void text(MarkKind kind, const DrawPlace &place, std::string_view characters,
              const TextStyle &style, Point at, const TextExtent &extent);

    /// Adds the marks of another list, moved.
    void append(const DrawList &list, Point offset);

    std::size_t markCount() const noexcept { return _list._marks.size(); }

    /// The list, packed; the builder is empty again.
    DrawList build();

private:
    void path(MarkKind kind, const DrawPlace &place, const PathShape &path, Unit thickness);

    DrawList _list;
};

} // namespace zarn::layout
