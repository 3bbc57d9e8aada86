// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/NoteOrder.h>

#include <algorithm>
#include <limits>
#include <numeric>

namespace zarn::playback {

NoteOrder::NoteOrder(const PlayedBars &bars)
{
    _barStarts.reserve(bars.bars().size() + 1);
    for (const PlayedBar &bar : bars.bars())
        _barStarts.push_back(bar.start.toDouble());
    _barStarts.push_back(std::numeric_limits<double>::infinity());
    _ends.resize(_barStarts.size());
}

void NoteOrder::add(const std::vector<PlannedNote> &notes)
{
    std::uint32_t index = 0;
    for (const PlannedNote &note : notes) {
        const double start = note.start.toDouble();
        std::uint32_t bar = note.playedBar;
        while (bar > 0 && start < _barStarts[bar])
            --bar;
        while (start >= _barStarts[bar + 1])
            ++bar;
        _places.push_back({start, _lists, index++});
        _bars.push_back(bar);
        ++_ends[bar + 1];
    }
    ++_lists;
}

std::vector<NoteOrder::Place> NoteOrder::sorted()
{
    std::partial_sum(_ends.begin(), _ends.end(), _ends.begin());
    std::vector<Place> places(_places.size());
    for (std::size_t i = 0; i < _places.size(); ++i)
        places[_ends[_bars[i]]++] = _places[i];
    std::uint32_t begin = 0;
    for (const std::uint32_t end : _ends) {
        std::stable_sort(
            places.begin() + begin, places.begin() + end,
            [](const Place &left, const Place &right) { return left.time < right.time; });
        begin = end;
    }
    return places;
}

} // namespace zarn::playback
