// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnDrawList.h>
#include <ZarnLayout/font/ZarnFontOutlines.h>

#include <QString>

namespace zarn::layout {

/// Units of the layout in a user unit of the SVG: a staff space has 128, numbers are whole and
/// short.
constexpr Unit unitsPerUserUnit = 8;

Unit inUserUnits(Unit length) noexcept;
Point inUserUnits(Point point) noexcept;

/// Outlines in the language of SVG's `d`, in steps from point to point, which are short: of glyphs
/// in the units of their font, of all else in user units.
QString svgPathData(const GlyphOutline &outline);
QString svgPathData(const DrawList &list, const DrawMark &path);

/// Horizontal lines as strokes, whose width stands elsewhere.
QString svgStrokeData(const DrawMark *lines, std::size_t count);

/// A line that is as thick as it should be, as the outline of its ink, from a place of its own.
QString svgLineData(const DrawMark &line);

} // namespace zarn::layout
