// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Pen.h>
#include <ZarnLayout/page/SystemDraft.h>
#include <ZarnLayout/page/WordRods.h>

#include <memory>
#include <vector>

namespace zarn::engraving {

/// Where a bar of a line without end stands, seen from where the bar line in front of it begins.
/// Never changes.
struct LinePlaces {
    double joint = 0; ///< where what stands in front of the bar begins: behind the names of tracks
    double left = 0;  ///< where the notes' room begins
    double right = 0;
    std::vector<double> columns;
    layout::Unit width = 0; ///< up to where the next bar begins
    WordReach after;        ///< of its words, and of those in front, over its end

    friend bool operator==(const LinePlaces &a, const LinePlaces &b)
    {
        return a.joint == b.joint && a.left == b.left && a.right == b.right
            && a.columns == b.columns && a.width == b.width && a.after == b.after;
    }
};

/// A bar of a line where it stands.
struct LineBar {
    layout::Unit left = 0;
    layout::Unit width = 0; ///< that of its places
    std::shared_ptr<const LinePlaces> places;
    bool isKept = false;       ///< the layout before had it at the same places
    bool beginsAfresh = false; ///< a part ends in front of it rather than elsewhere
};

/// Places a shown bar as widely as its notes want to stand; `before` are words of the bars in
/// front.
LinePlaces placeLineBar(const EngravedScore &score, unsigned shownBar, const WordReach &before,
                        const Pen &pen);

} // namespace zarn::engraving
