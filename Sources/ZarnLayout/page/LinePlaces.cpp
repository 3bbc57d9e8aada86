// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/LinePlaces.h>

#include <ZarnLayout/page/BarLines.h>
#include <ZarnLayout/page/SystemHead.h>

#include <cstddef>

namespace zarn::engraving {

LinePlaces placeLinePart(const EngravedScore &score, unsigned first, unsigned end,
                         const WordReach &before, const Pen &pen)
{
    SpringLine line;
    WordRods words(score, line);
    line.addColumn(first == 0 ? indentOf(score, pen, true) : 0, 0);
    words.comeBehind(before);
    for (unsigned i = first; i < end; ++i) {
        const JointPlace place = i == 0 ? JointPlace::Head : JointPlace::Middle;
        line.addColumn(jointBefore(score, i, place, pen).width, 0);
        const unsigned start = line.columnCount();
        score.spaced(i).addTo(line);
        words.addBar(i, start);
    }
    if (end == score.shown.size())
        words.endAt(jointBefore(score, end, JointPlace::Tail, pen).width);
    const std::vector<double> places = line.places(1);
    LinePlaces result;
    std::size_t column = 0;
    for (unsigned i = first; i < end; ++i) {
        LinePlaces::Bar bar;
        bar.joint = places[column];
        bar.left = places[column + 1];
        const std::size_t count = score.spaced(i).onsets.size();
        const auto notes = places.begin() + static_cast<std::ptrdiff_t>(column + 2);
        bar.columns.assign(notes, notes + static_cast<std::ptrdiff_t>(count));
        column += count + 2;
        bar.right = places[column];
        result.bars.push_back(std::move(bar));
    }
    result.width = layout::fromSpaces(places.back());
    result.after = words.reach(places);
    return result;
}

} // namespace zarn::engraving
