// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/LinePlaces.h>
#include <ZarnLayout/page/SystemBuilder.h>

#include <functional>
#include <limits>
#include <memory>
#include <vector>

namespace zarn::engraving {

/// Shown bars of a line: those that a part draws, among those that it looks at.
struct LineWindow {
    unsigned from = 0;
    unsigned first = 0; ///< of its own
    unsigned end = 0;
    unsigned to = 0;
};

/// By row: how far its top line is below that of the row above.
using RowDistances = std::vector<double>;

/// What all parts of a line have in common; what a part is built without stands where its own ink
/// wants it.
struct LineHeights {
    std::vector<WordHeights> words; ///< by row
    RowDistances distances;

    friend bool operator==(const LineHeights &a, const LineHeights &b)
    {
        return a.words == b.words && a.distances == b.distances;
    }
};

/// A part of a line that is ready.
struct BuiltLinePart {
    LineWindow window;
    LineHeights given;              ///< for which it was built
    std::vector<WordHeights> words; ///< as its ink wants them
    RowDistances distances;         ///< as its ink wants them
    /// Beams or slurs lead from staff to staff: its rows must not be moved apart once it is drawn.
    bool isTied = false;
    double top = 0;     ///< how far it reaches above the top line of the first row
    double bottom = 0;  ///< below the top line of the last row
    double lastRow = 0; ///< y of the last row as it is drawn
    RowHangers hangers; ///< of the drawing
    std::shared_ptr<const layout::SystemDrawing> drawing;
    std::shared_ptr<const Problems> problems;
};

/// Draws a line without end in parts that stand side by side. A part draws the marks that begin in
/// its bars, each of them whole, also where it leads into the bars behind; and it sees some of the
/// bars around its own, so that all stands as in one piece.
class LinePartBuilder : private SystemBuilder {
public:
    LinePartBuilder(const EngravedScore &score, const std::vector<LineBar> &bars, const Pen &pen)
        : SystemBuilder(score, pen, _found), _bars(bars)
    {
    }

    /// Builds the part of the shown bars `first` up to `end`; `engrave` is called for each bar that
    /// is looked at, before that.
    BuiltLinePart build(unsigned first, unsigned end,
                        const std::function<void(unsigned)> &engrave) const;

    /// The same for what the parts have in common, when it is known how far a part has to look.
    BuiltLinePart build(const LineWindow &known, const std::function<void(unsigned)> &engrave,
                        LineHeights given) const;

private:
    /// A stretch of the window.
    struct Span {
        double left;
        double right;
    };
    struct Edges {
        bool left = false;
        bool right = false;
    };

    SystemDraft draftOf(const LineWindow &window) const;
    Span ownSpan(const SystemDraft &draft, const LineWindow &window) const;
    /// Where a bar begins, seen from the left end of the window.
    double placeOf(unsigned shownBar, const LineWindow &window) const;
    bool isOwn(const Ink &ink, const LineWindow &window) const;
    bool isOwn(const MarkPlace &place, const LineWindow &window) const;
    /// Whether something of the window may go on where it ends.
    Edges cutEdges(const SystemDraft &draft, const LineWindow &window, const Span &own) const;
    Span spanOf(const SystemDraft &draft, const LineWindow &window, const Span &own) const;
    void keepOwn(SystemDraft &draft, const LineWindow &window) const;
    std::shared_ptr<const Problems> ownProblems(const LineWindow &window) const;

    const std::vector<LineBar> &_bars;
    mutable Problems _found;
};

} // namespace zarn::engraving
