// SPDX-License-Identifier: MIT
#include <ZarnCore/model/form/TremoloPair.h>

#include <ZarnCore/model/ZarnBeat.h>

namespace zarn {

bool isTremoloPair(const Beat &first, const Beat &second) noexcept
{
    if (first.tremoloToNext() == 0 || first.isGrace() || second.isGrace() || !first.hasNotes()
        || !second.hasNotes())
        return false;
    const auto &rhythm = first.rhythmValue();
    const auto ratio = rhythm.getPrimaryTupletRatio();
    const bool isHalved = ratio.first == 2 * ratio.second && !rhythm.hasSecondaryTuplet();
    return (isHalved || !rhythm.hasPrimaryTuplet()) && rhythm == second.rhythmValue();
}

} // namespace zarn
