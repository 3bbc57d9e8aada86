// SPDX-License-Identifier: MIT
#include <ZarnCore/model/layout/BarsOfSystems.h>

#include <ZarnCore/model/ZarnMasterTrack.h>

#include <algorithm>
#include <cstdint>

namespace zarn {

void insertBarsInSystems(std::vector<int> &systems, unsigned index, unsigned count)
{
    std::int64_t end = 0; // bar behind the system
    for (int &bars : systems) {
        end += bars;
        if (index <= end && bars > 0) {
            bars = static_cast<int>(
                std::min(static_cast<unsigned>(bars) + count, unsigned(MasterTrack::MaxBars)));
            return;
        }
    }
}

void removeBarsFromSystems(std::vector<int> &systems, unsigned first, unsigned last)
{
    std::vector<int> left;
    left.reserve(systems.size());
    std::int64_t begin = 0;
    for (const int bars : systems) {
        const std::int64_t end = begin + bars;
        const std::int64_t gone = std::min<std::int64_t>(end, std::int64_t(last) + 1)
            - std::max<std::int64_t>(begin, first);
        const int kept = bars - static_cast<int>(std::max<std::int64_t>(gone, 0));
        if (kept > 0 || bars == 0)
            left.push_back(kept);
        begin = end;
    }
    systems = std::move(left);
}

} // namespace zarn
