// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/NumberedSlurs.h>

#include <algorithm>
#include <map>

namespace zarn::engraving {

std::vector<NumberedSlur> numberedSlurs(const SystemDraft &draft, unsigned track)
{
    struct Place {
        const RowDraft *row;
        std::size_t chord;
        double x;
        SlurLine line = SlurLine::Solid;
        SlurSide side = SlurSide::Auto;
    };
    std::vector<Place> places;
    for (const RowDraft &row : draft.rows)
        if (row.row->track == track && row.row->isFirstOfStaff)
            for (std::size_t i = 0; i < row.chords.size(); ++i)
                if (const auto &details = row.chords[i].beat().details;
                    details && !details->slurEnds.empty())
                    places.push_back({&row, i, row.chords[i].x});
    std::stable_sort(places.begin(), places.end(),
                     [](const Place &left, const Place &right) { return left.x < right.x; });
    std::vector<NumberedSlur> slurs;
    std::map<unsigned, Place> open;
    for (const Place &place : places)
        for (const SlurEnd &end : place.row->chords[place.chord].beat().details->slurEnds) {
            if (end.isBegin) {
                open[end.number] = place;
                open[end.number].line = end.line;
                open[end.number].side = end.side;
            } else if (const auto begin = open.find(end.number); begin != open.end()) {
                slurs.push_back({begin->second.row, place.row, begin->second.chord, place.chord,
                                 begin->second.line, begin->second.side});
                open.erase(begin);
            } else {
                slurs.push_back({nullptr, place.row, place.chord, place.chord, end.line, end.side});
            }
        }
    for (const auto &[number, begin] : open)
        slurs.push_back({begin.row, nullptr, begin.chord, begin.chord, begin.line, begin.side});
    return slurs;
}

} // namespace zarn::engraving
