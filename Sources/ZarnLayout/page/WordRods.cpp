// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/WordRods.h>

namespace zarn::engraving {

void WordRods::comeBehind(const WordReach &words)
{
    for (const auto &[key, reach] : words)
        _last[key] = {0, layout::toSpaces(reach)};
}

void WordRods::addBar(unsigned shownBar, unsigned start)
{
    // The end of the bar is the last column of the line: what binds its neighbours binds it too.
    constexpr double airOfGap = 0.4; // in a line that has no room
    for (const WordOverBar &text : _score.spaced(shownBar).texts)
        _texts.push_back({start - 1 + text.column, text.reach});
    for (unsigned row = 0; row < _score.rows.size(); ++row) {
        const EngravedBar &bar = _score.bar(row, shownBar);
        const auto keyOf = [row](const SpaceBox &word) {
            return std::make_pair(row, static_cast<int>(word.box.top));
        };
        for (unsigned column = 0; column < bar.columns.size(); ++column) {
            const unsigned number = start + column;
            // Several of one line may stand at a column: those of grace notes in front of its own.
            const auto &boxes = bar.columns[column].boxes;
            for (const SpaceBox &box : boxes) {
                if (box.kind != SpaceBox::Kind::Text)
                    continue;
                const auto before = _last.find(keyOf(box));
                if (before == _last.end() && _room >= 0)
                    _line.addRodTo(number, 0, -box.box.left - _room);
                else if (before != _last.end() && before->second.column < start)
                    _line.addRodTo(number, before->second.column,
                                   before->second.reach - box.box.left + gapOfWords, airOfGap);
            }
            for (const SpaceBox &box : boxes) {
                if (box.kind != SpaceBox::Kind::Text)
                    continue;
                const Word word = {number, box.box.right};
                const auto [last, isNew] = _last.emplace(keyOf(box), word);
                if (!isNew && (last->second.column != number || last->second.reach < word.reach))
                    last->second = word;
            }
        }
    }
}

void WordRods::endAt(double room)
{
    for (const auto &[key, word] : _last)
        _line.addRodTo(_line.columnCount() - 1, word.column, word.reach - room + 0.1);
    for (const Word &text : _texts)
        _line.addRodTo(_line.columnCount() - 1, text.column, text.reach - room);
}

WordReach WordRods::reach(const std::vector<double> &places) const
{
    // No word reaches so far to the left of its column that it meets what is farther away.
    constexpr double farAway = -20;
    WordReach reach;
    for (const auto &[key, word] : _last)
        if (const double right = places[word.column] + word.reach - places.back(); right > farAway)
            reach[key] = layout::fromSpaces(right);
    return reach;
}

} // namespace zarn::engraving
