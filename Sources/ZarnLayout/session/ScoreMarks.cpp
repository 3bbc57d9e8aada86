// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/ScoreMarks.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace zarn::engraving {

void ScoreMarks::mark()
{
    const bool isFirst = !_any;
    _any = true;
    if (isFirst && _handler)
        _handler();
}

void ScoreMarks::markEverything()
{
    _everything = true;
    mark();
}

void ScoreMarks::markTexts()
{
    _texts = true;
    mark();
}

void ScoreMarks::markColumns()
{
    _columns = true;
    mark();
}

void ScoreMarks::markBars(std::uint64_t tracks, int first, int last)
{
    const auto size = static_cast<std::int64_t>(_bars.size());
    const auto end = std::min(std::int64_t{last} + 2, size);
    for (std::int64_t bar = std::max(first, 0); bar < end; ++bar)
        _bars[static_cast<std::size_t>(bar)] |= tracks;
    mark();
}

void ScoreMarks::addBars(int index, int count)
{
    _columns = _haveMoved = true;
    const auto at = std::clamp<std::ptrdiff_t>(index, 0, static_cast<int>(_bars.size()));
    const auto many = static_cast<std::size_t>(std::max(count, 0));
    _bars.insert(_bars.begin() + at, many, allTracks);
    _origins.insert(_origins.begin() + at, many, isNew);
    markBars(allTracks, index, index + count - 1);
}

void ScoreMarks::removeBars(int index, int count)
{
    _columns = _haveMoved = true;
    const auto size = static_cast<std::ptrdiff_t>(_bars.size());
    const auto at = std::clamp<std::ptrdiff_t>(index, 0, size);
    const auto end = std::clamp<std::ptrdiff_t>(std::ptrdiff_t{index} + count, at, size);
    _bars.erase(_bars.begin() + at, _bars.begin() + end);
    _origins.erase(_origins.begin() + at, _origins.begin() + end);
    markBars(allTracks, index, index - 1);
}

std::optional<std::vector<std::uint32_t>> ScoreMarks::takeOrigins(unsigned barCount)
{
    if (_everything || _bars.size() != barCount) {
        _everything = false;
        _texts = _columns = _haveMoved = true;
        _bars.assign(barCount, allTracks);
        _origins.resize(barCount);
        std::iota(_origins.begin(), _origins.end(), 0U);
    }
    if (!std::exchange(_haveMoved, false))
        return std::nullopt;
    std::vector<std::uint32_t> origins(barCount);
    std::iota(origins.begin(), origins.end(), 0U);
    origins.swap(_origins);
    return origins;
}

void ScoreMarks::clear()
{
    _any = _texts = _columns = false;
    std::fill(_bars.begin(), _bars.end(), 0);
}

} // namespace zarn::engraving
