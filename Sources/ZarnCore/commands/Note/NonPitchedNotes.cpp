// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/NonPitchedNotes.h>

#include <ZarnCore/model/ZarnTrack.h>

namespace zarn {

std::shared_ptr<const InstrumentSet> nonPitchedSetOf(const Staff &staff)
{
    const auto track = staff.track();
    return track != nullptr && InstrumentSet::isUnpitched(track->type()) ? track->instrumentSet()
                                                                         : nullptr;
}

} // namespace zarn
