// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/LinePartBuilder.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace zarn::engraving {

/// A part of a line that is as tall as all others.
struct LinePart {
    LinePartPlace place;
    bool isNew = false; ///< was not there in the layout before
    std::shared_ptr<const BuiltLinePart> built;

    /// With its rows where those of the whole line stand.
    std::shared_ptr<const layout::SystemDrawing> drawing;

    WordReach before;                                    ///< words of the parts in front
    std::shared_ptr<const BuiltLinePart> bare;           ///< by its own wishes
    RowDistances given;                                  ///< for which `built` was made; or empty
    RowShifts shifts;                                    ///< of `drawing`
    std::vector<std::shared_ptr<const LinePlaces>> seen; ///< of the parts that it looks at
};

/// Lays all bars out on one line without end, in parts of a few bars; what parts share with those
/// of the score before is not made again. What comes out depends on the last score alone.
class LineMaker {
public:
    explicit LineMaker(const Pen &pen) : _pen(pen) { }

    /// What is known of a score and the one before.
    struct Change {
        const EngravedScore &score;
        const EngravedScore &old;
        const std::vector<std::uint32_t> &origins; ///< of shown bars, or `SystemBreaks::isNew`
        bool hasOtherHeads;                        ///< whatever all parts show is different
        std::function<void(unsigned)> engrave;     ///< a bar, if that is not done yet
    };

    /// The parts from left to right.
    const std::vector<LinePart> &make(const Change &change);

    /// The next line has nothing in common with the last one.
    void forget() { _parts.clear(); }

    // Of the last line, as tall as its tallest part.
    double top() const noexcept { return _top; }
    double bottom() const noexcept { return _bottom; } ///< below the top line of the first row

private:
    static std::vector<unsigned> endsOf(const EngravedScore &score);
    void placeParts(const Change &change, const std::vector<LinePart> &old);
    void buildParts(const Change &change);
    void takeOver(const Change &change, const LinePart &old, LinePart &part) const;
    void alignRows(const Change &change);
    bool hasSameWindow(const Change &change, const LinePart &old, std::size_t number) const;
    std::vector<std::shared_ptr<const LinePlaces>> seenBy(const LineWindow &window) const;
    std::vector<LinePartPlace> placesOfParts() const;

    const Pen &_pen;
    std::vector<LinePart> _parts;
    std::vector<const LinePart *> _origins; ///< by part, what it was before; null for none
    double _top = 0;
    double _bottom = 0;
};

} // namespace zarn::engraving
