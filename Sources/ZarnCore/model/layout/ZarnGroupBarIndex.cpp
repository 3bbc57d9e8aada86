// SPDX-License-Identifier: MIT
#include <ZarnCore/model/layout/ZarnGroupBarIndex.h>

#include <algorithm>

namespace zarn {

GroupBarIndex::GroupBarIndex(int bar, int otherBar, Type type) noexcept
    : _first(std::min(bar, otherBar)), _last(std::max(bar, otherBar)), _type(type)
{
}

unsigned GroupBarIndex::barCount() const noexcept
{
    return _first < 0 ? 0 : static_cast<unsigned>(_last) - static_cast<unsigned>(_first) + 1;
}

bool GroupBarIndex::containsBar(int bar) const noexcept
{
    return _first >= 0 && _first <= bar && bar <= _last;
}

} // namespace zarn
