// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/ZarnLayoutExport.h>
#include <ZarnLayout/draw/ZarnLayout.h>

#include <string>

namespace zarn::layout {

/// A layout as JSON, for programs that check or measure it. Lengths are in 1/1024 of a staff space
/// from the upper left corner of the sheet, y downwards; those of sheets in millimetres.
///
///     {"staffSpace": 1.75, "font": "Bravura",
///      "pages": [{"width": 210, "height": 297,
///                 "margins": {"left": 15, "top": 15, "right": 15, "bottom": 15},
///                 "systems": [{"at": [x, y], "staves": [...], "bars": [...]}]}],
///      "marks": [{"page": 0, "system": 0, "kind": "noteHead", "shape": "glyph",
///                 "glyph": "noteheadBlack", "place": [track, bar, staff, voice, beat, note],
///                 "at": [x, y], "box": [left, top, right, bottom]}, ...],
///      "glyphs": {"noteheadBlack": {"codePoint": 57508, "ink": [[x, y, x, y, ...], ...]}},
///      "problems": [{"place": [...], "message": "..."}]}
///
/// Places are counted from 0 and -1 where they do not apply; marks outside of systems have system
/// -1. Texts have "text", "size" and "face", lines "to" and "thickness", paths "ink". The "ink" of
/// a glyph is its outline around its origin, curves cut into straight lines; marks that are drawn
/// larger, smaller or turned have "scale" (in 1/1024, across and upwards) and "turns".
ZARNLAYOUT_EXPORT std::string layoutDump(const Layout &layout);

} // namespace zarn::layout
