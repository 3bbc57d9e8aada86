// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/NumberedSlurs.h>

#include <ZarnCore/model/ZarnBeat.h>

#include <algorithm>
#include <map>
#include <tuple>

namespace zarn::sheet {

void NumberedSlurs::add(const Sheet &sheet, const BeatPlace &place, int lane)
{
    for (const SlurEnd &end : place.beat.slurEnds())
        _ends.push_back({sheet.bars.size(), place.column, lane, end});
}

void NumberedSlurs::write(Sheet &sheet)
{
    std::stable_sort(_ends.begin(), _ends.end(), [](const End &left, const End &right) {
        return std::tie(left.bar, left.column) < std::tie(right.bar, right.column);
    });
    std::map<int, std::vector<End>> open; // by number
    for (const End &end : _ends) {
        auto &begins = open[end.end.number];
        if (end.end.isBegin) {
            begins.push_back(end);
            continue;
        }
        if (begins.empty())
            continue;
        const End begin = begins.back();
        begins.pop_back();
        ++sheet.runCount;
        for (std::size_t bar = begin.bar; bar <= end.bar; ++bar) {
            Stretch piece;
            piece.lane = begin.lane;
            piece.style = Stretch::Style::Slur;
            piece.ink = Ink::Rhythm;
            piece.run = sheet.runCount;
            piece.begins = bar == begin.bar;
            piece.ends = bar == end.bar;
            piece.first = piece.begins ? begin.column : ColumnKey{0, ColumnKey::Signature};
            piece.last =
                piece.ends ? end.column : ColumnKey{sheet.bars[bar].length, ColumnKey::BarEnd};
            sheet.bars[bar].stretches.push_back(piece);
        }
    }
    _ends.clear();
}

} // namespace zarn::sheet
