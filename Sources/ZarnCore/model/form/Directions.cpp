// SPDX-License-Identifier: MIT
#include <ZarnCore/model/form/Directions.h>

#include <algorithm>

namespace zarn {

int Directions::barOf(DirectionMark mark) const noexcept
{
    return mark < DirectionMark::NoDirection ? _bars[static_cast<std::size_t>(mark)] : -1;
}

std::set<DirectionMark> Directions::marksAt(int bar) const
{
    std::set<DirectionMark> marks;
    if (bar < 0)
        return marks;
    for (std::size_t kind = 0; kind < _bars.size(); ++kind)
        if (_bars[kind] == bar)
            marks.insert(static_cast<DirectionMark>(kind));
    return marks;
}

bool Directions::hasAnyAt(int bar) const noexcept
{
    return bar >= 0 && std::find(_bars.begin(), _bars.end(), bar) != _bars.end();
}

bool Directions::set(int kind, int bar) noexcept
{
    if (kind < 0 || kind >= DirectionMarkCount)
        return false;
    _bars[static_cast<std::size_t>(kind)] = bar;
    return true;
}

void Directions::insertBars(unsigned at, unsigned count) noexcept
{
    for (int &bar : _bars)
        if (bar >= static_cast<int>(at))
            bar += static_cast<int>(count);
}

void Directions::eraseBars(unsigned first, unsigned last) noexcept
{
    const auto from = static_cast<int>(first);
    const auto to = static_cast<int>(last);
    for (int &bar : _bars) {
        if (bar > to)
            bar -= to - from + 1;
        else if (bar >= from)
            bar = -1;
    }
}

} // namespace zarn
