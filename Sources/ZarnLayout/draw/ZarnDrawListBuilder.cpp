// SPDX-License-Identifier: MIT
#include <ZarnLayout/draw/ZarnDrawListBuilder.h>

#include <ZarnCore/ZarnAssert.h>

#include <utility>

namespace zarn::layout {

PathShape &PathShape::moveTo(Point point)
{
    _points.push_back(point);
    _verbs.push_back(PathVerb::Move);
    return *this;
}

PathShape &PathShape::lineTo(Point point)
{
    ZARN_ASSERT_IN("zarn::layout::PathShape::lineTo", !_verbs.empty());
    _points.push_back(point);
    _verbs.push_back(PathVerb::Line);
    return *this;
}

PathShape &PathShape::curveTo(Point firstControl, Point secondControl, Point end)
{
    ZARN_ASSERT_IN("zarn::layout::PathShape::curveTo", !_verbs.empty());
    _points.insert(_points.end(), {firstControl, secondControl, end});
    _verbs.push_back(PathVerb::Cubic);
    return *this;
}

PathShape &PathShape::close()
{
    ZARN_ASSERT_IN("zarn::layout::PathShape::close", !_verbs.empty());
    _verbs.push_back(PathVerb::Close);
    return *this;
}

PathShape PathShape::polygon(const std::vector<Point> &corners)
{
    PathShape shape;
    shape._points.reserve(corners.size());
    shape._verbs.reserve(corners.size() + 1);
    for (const Point &corner : corners) {
        if (shape._verbs.empty())
            shape.moveTo(corner);
        else
            shape.lineTo(corner);
    }
    if (!shape._verbs.empty())
        shape.close();
    return shape;
}

PathShape PathShape::rectangle(const Box &box)
{
    return polygon({{box.left, box.top},
                    {box.right, box.top},
                    {box.right, box.bottom},
                    {box.left, box.bottom}});
}

PathShape PathShape::circle(Point centre, Unit radius)
{
    // The usual length of the handles of a quarter circle.
    const auto handle = static_cast<Unit>(radius * 0.5522847498 + 0.5);
    const auto at = [&](Unit x, Unit y) { return centre + Point{x, y}; };
    PathShape shape;
    shape.moveTo(at(radius, 0))
        .curveTo(at(radius, handle), at(handle, radius), at(0, radius))
        .curveTo(at(-handle, radius), at(-radius, handle), at(-radius, 0))
        .curveTo(at(-radius, -handle), at(-handle, -radius), at(0, -radius))
        .curveTo(at(handle, -radius), at(radius, -handle), at(radius, 0))
        .close();
    return shape;
}

DrawListBuilder::DrawListBuilder() = default;
DrawListBuilder::~DrawListBuilder() = default;

void DrawListBuilder::glyph(MarkKind kind, const DrawPlace &place, GlyphId glyph, Point at,
                            const GlyphForm &form)
{
    DrawMark mark;
    mark.shape = MarkShape::Glyph;
    mark.kind = kind;
    mark.place = place;
    mark.glyph = glyph;
    mark.at = at;
    mark.to = form.scale;
    mark.detail = form.quarterTurns % 4;
    _list._marks.push_back(mark);
}

void DrawListBuilder::line(MarkKind kind, const DrawPlace &place, Point from, Point to,
                           Unit thickness, Dash dash, LineCap cap)
{
    DrawMark mark;
    mark.shape = MarkShape::Line;
    mark.kind = kind;
    mark.place = place;
    mark.at = from;
    mark.to = to;
    mark.thickness = thickness;
    mark.detail = static_cast<std::uint32_t>(dash.length);
    mark.gap = dash.gap;
    mark.cap = cap;
    _list._marks.push_back(mark);
}

void DrawListBuilder::fill(MarkKind kind, const DrawPlace &place, const PathShape &path)
{
    this->path(kind, place, path, 0);
}

void DrawListBuilder::stroke(MarkKind kind, const DrawPlace &place, const PathShape &path,
                             Unit thickness)
{
    ZARN_ASSERT_IN("zarn::layout::DrawListBuilder::stroke", thickness > 0);
    this->path(kind, place, path, thickness);
}

void DrawListBuilder::text(MarkKind kind, const DrawPlace &place, std::string_view characters,
                           const TextStyle &style, Point at, const TextExtent &extent)
{
    DrawMark mark;
    mark.shape = MarkShape::Text;
    mark.kind = kind;
    mark.place = place;
    mark.at = at;
    mark.detail = static_cast<std::uint32_t>(_list._texts.size());
    _list._texts.push_back({static_cast<std::uint32_t>(_list._characters.size()),
                            static_cast<std::uint32_t>(characters.size()), style, extent.advance,
                            extent.ink});
    _list._characters.append(characters);
    _list._marks.push_back(mark);
}

void DrawListBuilder::append(const DrawList &list, Point offset)
{
    const auto paths = static_cast<std::uint32_t>(_list._paths.size());
    const auto texts = static_cast<std::uint32_t>(_list._texts.size());
    const auto points = static_cast<std::uint32_t>(_list._points.size());
    const auto verbs = static_cast<std::uint32_t>(_list._verbs.size());
    const auto bytes = static_cast<std::uint32_t>(_list._characters.size());
    for (DrawMark mark : list._marks) {
        if (mark.shape == MarkShape::Path)
            mark.detail += paths;
        else
            mark.at = mark.at + offset;
        if (mark.shape == MarkShape::Line)
            mark.to = mark.to + offset;
        if (mark.shape == MarkShape::Text)
            mark.detail += texts;
        _list._marks.push_back(mark);
    }
    for (DrawList::Path path : list._paths) {
        path.firstPoint += points;
        path.firstVerb += verbs;
        _list._paths.push_back(path);
    }
    for (DrawList::Text text : list._texts) {
        text.firstByte += bytes;
        _list._texts.push_back(text);
    }
    for (const Point &point : list._points)
        _list._points.push_back(point + offset);
    _list._verbs.insert(_list._verbs.end(), list._verbs.begin(), list._verbs.end());
    _list._characters += list._characters;
}

DrawList DrawListBuilder::build()
{
    DrawList list = std::exchange(_list, DrawList());
    list._marks.shrink_to_fit();
    list._paths.shrink_to_fit();
    list._texts.shrink_to_fit();
    list._points.shrink_to_fit();
    list._verbs.shrink_to_fit();
    list._characters.shrink_to_fit();
    return list;
}

void DrawListBuilder::path(MarkKind kind, const DrawPlace &place, const PathShape &path,
                           Unit thickness)
{
    DrawMark mark;
    mark.shape = MarkShape::Path;
    mark.kind = kind;
    mark.place = place;
    mark.thickness = thickness;
    mark.detail = static_cast<std::uint32_t>(_list._paths.size());
    _list._paths.push_back({static_cast<std::uint32_t>(_list._points.size()),
                            static_cast<std::uint32_t>(path._points.size()),
                            static_cast<std::uint32_t>(_list._verbs.size()),
                            static_cast<std::uint32_t>(path._verbs.size())});
    _list._points.insert(_list._points.end(), path._points.begin(), path._points.end());
    _list._verbs.insert(_list._verbs.end(), path._verbs.begin(), path._verbs.end());
    _list._marks.push_back(mark);
}

} // namespace zarn::layout
