// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/LinePlaces.h>

#include <ZarnLayout/page/BarLines.h>
#include <ZarnLayout/page/SystemHead.h>

#include <cstddef>

namespace zarn::engraving {

LinePlaces placeLineBar(const EngravedScore &score, unsigned shownBar, const WordReach &before,
                        const Pen &pen)
{
    const bool isFirst = shownBar == 0;
    SpringLine line;
    WordRods words(score, line);
    line.addColumn(isFirst ? indentOf(score, pen, true) : 0, 0);
    words.comeBehind(before);
    const JointPlace place = isFirst ? JointPlace::Head : JointPlace::Middle;
    line.addColumn(jointBefore(score, shownBar, place, pen).width, 0);
    score.spaced(shownBar).addTo(line);
    words.addBar(shownBar, 2);
    if (shownBar + 1 == score.shown.size())
        words.endAt(jointBefore(score, shownBar + 1, JointPlace::Tail, pen).width);
    const std::vector<double> places = line.places(1);
    const std::size_t count = score.spaced(shownBar).onsets.size();
    LinePlaces result;
    result.joint = places[0];
    result.left = places[1];
    result.columns.assign(places.begin() + 2,
                          places.begin() + 2 + static_cast<std::ptrdiff_t>(count));
    result.right = places[2 + count];
    result.width = layout::fromSpaces(result.right);
    result.after = words.reach(places);
    return result;
}

} // namespace zarn::engraving
