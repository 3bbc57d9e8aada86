// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/io/sheet/Sheet.h>

#include <vector>

namespace zarn::sheet {

struct Glyphs;

/// A column of a bar at its place in the line.
struct PlacedColumn {
    const ColumnKey *key = nullptr;
    const std::map<int, Cell> *cells = nullptr;
    int x = 0;
    int width = 0; ///< what is wider is cut, when it does not fit the page
};

/// The part of a bar that stands on one system: all of it, unless it is wider than the page.
struct Segment {
    const SheetBar *bar = nullptr;
    bool beginsBar = true;
    bool endsBar = true;
    BarLine before = BarLine::Single; ///< drawn at `left`, when the bar begins here
    BarLine after = BarLine::Single;  ///< drawn at `right`, for the last segment of a system
    int left = 0;                     ///< of the bar line in front
    int right = 0;                    ///< of the bar line behind, where the next segment begins
    std::vector<PlacedColumn> columns;
};

/// Bars that stand beside each other.
struct System {
    std::vector<Segment> segments;
};

/// The least width of a bracket with its text.
ZARNCORE_EXPORT int bracketWidth(const Span &span);

/// A bar line in one lane: `gap` is what the lane has beside it, `dot` what stands for the dots of
/// a repeat.
ZARNCORE_EXPORT QString barLineText(BarLine line, const Glyphs &glyphs, const QString &gap,
                                    const QString &dot);

/// Width of a bar line in columns, its repeat dots included.
ZARNCORE_EXPORT int barLineWidth(BarLine line, const Glyphs &glyphs);

/// Breaks the music into systems that fit between `left`, where the first bar line stands, and
/// `width`. A bar that does not fit alone is set tighter, then broken between two columns.
ZARNCORE_EXPORT std::vector<System> breakIntoSystems(const Sheet &sheet, const Glyphs &glyphs,
                                                     int left, int width);

} // namespace zarn::sheet
