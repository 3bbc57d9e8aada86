// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/ZarnLayoutExport.h>
#include <ZarnLayout/draw/ZarnDrawPlace.h>
#include <ZarnLayout/draw/ZarnGeometry.h>
#include <ZarnLayout/draw/ZarnMarkKind.h>
#include <ZarnLayout/font/ZarnFontFace.h>
#include <ZarnLayout/font/ZarnMusicFont.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zarn::layout {

struct TextExtent;

enum class MarkShape : std::uint8_t { Glyph, Line, Path, Text };

/// How the ends of a line look.
enum class LineCap : std::uint8_t { Flat, Round };

enum class PathVerb : std::uint8_t {
    Move,  ///< one point
    Line,  ///< one point
    Cubic, ///< two control points and the end of a Bézier curve
    Close, ///< no point
};

/// One mark of a `DrawList`. Which members count depends on its shape.
struct DrawMark {
    MarkShape shape = MarkShape::Glyph;
    MarkKind kind = MarkKind::StaffLine;
    /// Of glyphs.
    GlyphId glyph{};
    DrawPlace place;
    /// Origin of a glyph, begin of a line, left end of a text's base line; 0, 0 for paths.
    Point at;
    /// End of a line. Of glyphs how much larger than in the font they are drawn, across and
    /// upwards, in 1/1024.
    Point to;
    /// Of lines, and of paths that are stroked; 0 for paths that are filled.
    Unit thickness = 0;
    /// Index among the paths or texts of the list; of lines the length of dashes, 0 for solid ones;
    /// of glyphs how many quarter turns they are turned counter-clockwise about their origin.
    std::uint32_t detail = 0;
    /// Of dashed lines, between the dashes.
    Unit gap = 0;
    LineCap cap = LineCap::Flat;

    friend bool operator==(const DrawMark &a, const DrawMark &b) noexcept
    {
        return a.shape == b.shape && a.kind == b.kind && a.glyph == b.glyph && a.place == b.place
            && a.at == b.at && a.to == b.to && a.thickness == b.thickness && a.detail == b.detail
            && a.gap == b.gap && a.cap == b.cap;
    }
    friend bool operator!=(const DrawMark &a, const DrawMark &b) noexcept { return !(a == b); }
};

/// How far down a mark is moved.
struct MarkMove {
    Unit at = 0;
    /// The end of a line; of a glyph, what is added to how much higher than in the font it is.
    Unit to = 0;
};

/// What is drawn of a system, or of a page beside its systems: records in the order of painting.
/// Immutable and free of references to the score, so that any thread may paint it.
class ZARNLAYOUT_EXPORT DrawList {
public:
    struct Path {
        std::uint32_t firstPoint = 0;
        std::uint32_t pointCount = 0;
        std::uint32_t firstVerb = 0;
        std::uint32_t verbCount = 0;

        friend bool operator==(const Path &a, const Path &b) noexcept
        {
            return a.firstPoint == b.firstPoint && a.pointCount == b.pointCount
                && a.firstVerb == b.firstVerb && a.verbCount == b.verbCount;
        }
    };
    struct Text {
        std::uint32_t firstByte = 0;
        std::uint32_t byteCount = 0;
        TextStyle style;
        /// What the layout reserved for it, from its left end on the base line.
        Unit advance = 0;
        Box ink;

        friend bool operator==(const Text &a, const Text &b) noexcept
        {
            return a.firstByte == b.firstByte && a.byteCount == b.byteCount && a.style == b.style
                && a.advance == b.advance && a.ink == b.ink;
        }
    };

    DrawList();
    ~DrawList();

    const std::vector<DrawMark> &marks() const noexcept { return _marks; }

    /// Of a mark that is a path; its points and verbs are `points().data() + firstPoint` and so on.
    const Path &path(const DrawMark &mark) const { return _paths.at(mark.detail); }
    const std::vector<Point> &points() const noexcept { return _points; }
    const std::vector<PathVerb> &verbs() const noexcept { return _verbs; }

    /// Of a mark that is a text, in UTF-8.
    const Text &textOf(const DrawMark &mark) const { return _texts.at(mark.detail); }
    std::string_view characters(const DrawMark &mark) const;

    /// The smallest box around the ink of a mark.
    Box box(const DrawMark &mark, const MusicFont &font) const;
    /// Around the ink of all marks.
    Box box(const MusicFont &font) const;

    /// The same marks, of places that are so many bars further on.
    DrawList movedByBars(std::int32_t bars) const;
    /// The same with each mark moved down by itself; marks without a move stay.
    DrawList movedBy(const std::vector<MarkMove> &moves) const;
    /// The same with other words in place of those of a mark, which is a text.
    DrawList withText(std::size_t mark, std::string_view characters, Point at,
                      const TextExtent &extent) const;

    /// What the list holds in memory, in bytes.
    std::size_t byteCount() const noexcept;

    friend bool operator==(const DrawList &a, const DrawList &b) noexcept
    {
        return a._marks == b._marks && a._paths == b._paths && a._texts == b._texts
            && a._points == b._points && a._verbs == b._verbs && a._characters == b._characters;
    }
    friend bool operator!=(const DrawList &a, const DrawList &b) noexcept { return !(a == b); }

private:
    friend class DrawListBuilder;

    std::vector<DrawMark> _marks;
    std::vector<Path> _paths;
    std::vector<Text> _texts;
    std::vector<Point> _points;
    std::vector<PathVerb> _verbs;
    std::string _characters;
};

/// The box of a glyph that is drawn so, around its origin.
ZARNLAYOUT_EXPORT Box glyphBox(const MusicFont &font, GlyphId glyph, Point scale,
                               unsigned quarterTurns);

} // namespace zarn::layout
