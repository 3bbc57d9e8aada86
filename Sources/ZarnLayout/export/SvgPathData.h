// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnDrawList.h>
#include <ZarnLayout/font/ZarnFontOutlines.h>

#include <QString>

namespace zarn::layout {

/// Outlines in the language of SVG's `d`, in steps from point to point, which are short.
QString svgPathData(const GlyphOutline &outline);
QString svgPathData(const DrawList &list, const DrawMark &path);

/// Horizontal lines as strokes, whose width stands elsewhere.
QString svgStrokeData(const DrawMark *lines, std::size_t count);

/// A line that is as thick as it should be, as the outline of its ink.
QString svgLineData(const DrawMark &line);

} // namespace zarn::layout
