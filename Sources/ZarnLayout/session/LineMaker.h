// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/LinePartBuilder.h>
#include <ZarnLayout/session/FormerBars.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace zarn::engraving {

/// A part of a line that is as tall as all others.
struct LinePart {
    unsigned first = 0; ///< shown bars
    unsigned end = 0;
    layout::Unit left = 0; ///< on the line
    bool isNew = false;    ///< was not there in the layout before
    std::shared_ptr<const BuiltLinePart> built;

    /// With its rows where those of the whole line stand.
    std::shared_ptr<const layout::SystemDrawing> drawing;

    std::shared_ptr<const BuiltLinePart> bare;  ///< by its own wishes
    std::shared_ptr<const BuiltLinePart> lined; ///< with its words where those of the line stand

    std::uint32_t before = 0; ///< its number among the parts before, unless it is new
    bool isOther = false;     ///< than before, as `lined` says; so is what is new

    // What is asked of all parts behind each edit, without a look at what is built.
    LineWindow window;
    bool hasWords = false;
    double top = 0;
    double bottom = 0;
    std::shared_ptr<const Problems> problems; ///< null for none

    /// Takes these from `built`.
    void lookAtBuilt();
};

/// Lays all bars out on one line without end, in parts of a few bars; what parts share with those
/// of the score before is not made again. What comes out depends on the last score alone.
class LineMaker {
public:
    explicit LineMaker(const Pen &pen) : _pen(pen) { }

    /// What is known of a score and the one before.
    struct Change {
        const EngravedScore &score;
        const FormerBars &old;
        const std::vector<std::uint32_t> &origins; ///< of shown bars, or `SystemBreaks::isNew`
        bool hasOtherHeads;                        ///< whatever all parts show is different
        std::function<void(unsigned)> space;       ///< engraves a bar and finds its spaces
        std::function<void(unsigned)> engrave;     ///< a bar whose columns have their places
    };

    void make(const Change &change);

    /// The next line has nothing in common with the last one.
    void forget()
    {
        _line = {};
        _old = {};
    }

    /// Of the last line, from left to right.
    const std::vector<LinePart> &parts() const noexcept { return _line.parts; }

    // Of the last line, as tall as its tallest part.
    double top() const noexcept { return _top; }
    double bottom() const noexcept { return _bottom; } ///< below the top line of the first row

private:
    struct Line {
        std::vector<LineBar> bars; ///< by shown bar
        std::vector<LinePart> parts;
        std::vector<std::vector<double>> distances; ///< from row to row of each part, by row
        std::vector<WordHeights> words;             ///< of all parts, by row
        RowDistances rows;                          ///< of all parts

        /// Leaves their room to the next line, which is about as long.
        void clear();
    };

    /// The line before, out of which goes what stays as it is.
    struct Former {
        Line line;
        std::vector<const LinePlaces *> places; ///< by shown bar
    };

    std::vector<unsigned> ends() const;
    void placeBars(const Change &change, Former &old);
    bool isPlaced(const Change &change, const Former &old, unsigned shownBar) const;
    void buildParts(const Change &change, Former &old);
    LinePart *sameIn(const Change &change, Former &old, unsigned first, unsigned end) const;
    bool hasSameWindow(const Change &change, const Former &old, const LineWindow &was,
                       unsigned first) const;
    static LinePart takenOver(const Change &change, LinePart old, unsigned first);
    void findDistances(std::size_t rows, Line &old);
    /// Builds a part again as the whole line wants it, or takes it as it is.
    std::shared_ptr<const BuiltLinePart> fitted(const Change &change,
                                                const std::shared_ptr<const BuiltLinePart> &part,
                                                const std::shared_ptr<const BuiltLinePart> &last,
                                                const LineHeights &heights) const;
    void alignWords(const Change &change, const Line &old);
    void alignRows(const Change &change, Line &old);
    void alignRows(const Change &change, LinePart &part,
                   const std::vector<layout::Unit> &heights) const;

    const Pen &_pen;
    Line _line;
    Former _old; ///< while the next line is made
    double _top = 0;
    double _bottom = 0;
};

} // namespace zarn::engraving
