// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/TupletSpans.h>

#include <ZarnCore/io/sheet/Texts.h>
#include <ZarnCore/music/ZarnRhythmValue.h>

#include <optional>

namespace zarn::sheet {

void addTupletSpans(const std::vector<TimedBeat> &beats, TupletLevel level, int lane,
                    std::vector<Span> &spans)
{
    std::optional<TupletGroup> open;
    ColumnKey first;
    ColumnKey last;
    const auto close = [&] {
        if (open)
            spans.push_back(
                {lane, first, last, tupletText(open->ratio().first, open->ratio().second)});
        open.reset();
    };
    for (const TimedBeat &beat : beats) {
        if (open && !open->takes(*beat.rhythm))
            close();
        if (!TupletGroup::ratioOf(*beat.rhythm, level))
            continue;
        if (!open) {
            open.emplace(*beat.rhythm, level, beat.column.onset);
            first = beat.column;
        }
        open->add(*beat.rhythm);
        last = beat.column;
        if (open->isFull())
            close();
    }
    close();
}

} // namespace zarn::sheet
