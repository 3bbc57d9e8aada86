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
    }
    ++_lists;
}

std::vector<NoteOrder::Place> NoteOrder::sorted()
{
    // So many parts of each bar that few notes of a part begin at different times.
    constexpr std::size_t mostParts = 16;
    const std::size_t bars = _barStarts.size() - 1;
    const std::size_t parts =
        std::clamp<std::size_t>(_places.size() / std::max<std::size_t>(bars, 1), 1, mostParts);
    const auto partOf = [&](const Place &place, std::size_t bar) {
        const double past = place.time - _barStarts[bar];
        if (past <= 0)
            return bar * parts;
        const double share = past / (_barStarts[bar + 1] - _barStarts[bar]);
        const auto part = static_cast<std::size_t>(share * static_cast<double>(parts));
        return bar * parts + std::min(part, parts - 1);
    };
    std::vector<std::uint32_t> ends(bars * parts + 1); // by the number behind that of the part
    for (std::size_t i = 0; i < _places.size(); ++i) {
        _bars[i] = static_cast<std::uint32_t>(partOf(_places[i], _bars[i]));
        ++ends[_bars[i] + 1];
    }
    std::partial_sum(ends.begin(), ends.end(), ends.begin());
    std::vector<Place> places(_places.size());
    for (std::size_t i = 0; i < _places.size(); ++i)
        places[ends[_bars[i]]++] = _places[i];
    const auto isEarlier = [](const Place &left, const Place &right) {
        return left.time < right.time;
    };
    auto first = places.begin();
    for (const std::uint32_t end : ends) {
        const auto last = places.begin() + end;
        if (!std::is_sorted(first, last, isEarlier))
            std::stable_sort(first, last, isEarlier);
        first = last;
    }
    return places;
}

} // namespace zarn::playback
