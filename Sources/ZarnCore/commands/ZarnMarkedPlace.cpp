// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnMarkedPlace.h>

#include <ZarnCore/model/ZarnTrack.h>

namespace zarn {

MarkedPlace::MarkedPlace(const Staff &inStaff)
    : staff(inStaff), isFretted(inStaff.isFretted()), isPitched(true)
{
    if (const auto track = inStaff.track())
        isPitched = !InstrumentSet::isUnpitched(track->type());
}

} // namespace zarn
