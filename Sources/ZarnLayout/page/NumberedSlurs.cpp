// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/NumberedSlurs.h>

#include <algorithm>
#include <map>

namespace zarn::engraving {

std::optional<std::size_t> chordAt(const RowDraft &row, unsigned shownBar,
                                   const utils::rational &onset)
{
    for (std::size_t i = 0; i < row.chords.size(); ++i) {
        const PlacedChord &chord = row.chords[i];
        if (chord.shownBar == shownBar && !chord.chord->isRest() && !chord.beat().isGrace()
            && chord.beat().onset == onset)
            return i;
    }
    return std::nullopt;
}

std::vector<NumberedSlur> numberedSlurs(const SystemDraft &draft, unsigned track)
{
    struct Place {
        const RowDraft *row;
        std::size_t chord;
        double x;
        const SlurEnds *ends;
        SlurLine line = SlurLine::Solid;
        SlurSide side = SlurSide::Auto;
    };
    std::vector<Place> places;
    const auto add = [&](const RowDraft &row, const BeatSource &beat, std::size_t chord) {
        if (beat.details && !beat.details->slurEnds.empty())
            places.push_back({&row, chord, row.chords[chord].x, &beat.details->slurEnds});
    };
    // What is not drawn counts for what is drawn at its time.
    const auto addHidden = [&](const RowDraft &row, unsigned bar) {
        for (const VoiceSource &voice : draft.score.source(row.number, bar).voices)
            for (const BeatSource &beat : voice.beats)
                if (beat.isPlaceHolder && beat.details && !beat.details->slurEnds.empty())
                    if (const auto chord = chordAt(row, bar, beat.onset))
                        add(row, beat, *chord);
    };
    for (const RowDraft &row : draft.rows) {
        if (row.row->track != track || !row.row->isFirstOfStaff)
            continue;
        for (std::size_t i = 0; i < row.chords.size(); ++i)
            add(row, row.chords[i].beat(), i);
        for (unsigned bar = draft.first; bar < draft.end; ++bar)
            addHidden(row, bar);
    }
    std::stable_sort(places.begin(), places.end(),
                     [](const Place &left, const Place &right) { return left.x < right.x; });
    std::vector<NumberedSlur> slurs;
    std::map<unsigned, Place> open;
    for (const Place &place : places)
        for (const SlurEnd &end : *place.ends) {
            if (end.isBegin) {
                Place &begin = open.insert_or_assign(end.number, place).first->second;
                begin.line = end.line;
                begin.side = end.side;
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
