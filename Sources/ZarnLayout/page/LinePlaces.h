// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Pen.h>
#include <ZarnLayout/page/SystemDraft.h>
#include <ZarnLayout/page/WordRods.h>

#include <memory>
#include <vector>

namespace zarn::engraving {

/// Where the bars of a part of a line stand, seen from its left end, where the bar line in front of
/// it begins. Never changes.
struct LinePlaces {
    struct Bar {
        double joint = 0; ///< where what stands in front of the bar begins
        double left = 0;  ///< where the notes' room begins
        double right = 0;
        std::vector<double> columns;

        friend bool operator==(const Bar &a, const Bar &b)
        {
            return a.joint == b.joint && a.left == b.left && a.right == b.right
                && a.columns == b.columns;
        }
    };

    std::vector<Bar> bars;
    layout::Unit width = 0; ///< up to the end of its last bar, where the next part begins
    WordReach after;        ///< of its words, over its end

    friend bool operator==(const LinePlaces &a, const LinePlaces &b)
    {
        return a.bars == b.bars && a.width == b.width && a.after == b.after;
    }
};

/// A part of a line where it stands.
struct LinePartPlace {
    unsigned first = 0; ///< shown bars
    unsigned end = 0;
    layout::Unit left = 0; ///< on the line
    std::shared_ptr<const LinePlaces> places;
};

/// Places the shown bars `first` up to `end` as widely as their notes want to stand; `before` are
/// words of the bars in front.
LinePlaces placeLinePart(const EngravedScore &score, unsigned first, unsigned end,
                         const WordReach &before, const Pen &pen);

} // namespace zarn::engraving
