// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterTrack/ZarnModifyDirections.h>

#include <ZarnCore/events/ZarnMasterBarEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn {

ModifyDirections::~ModifyDirections() = default;

bool ModifyDirections::hasBar(int bar) const
{
    return bar >= 0 && model().masterTrack()->hasMasterBarIndex(static_cast<unsigned>(bar));
}

void ModifyDirections::apply()
{
    const auto before = model().masterTrack()->directionSlots();
    auto after = before;
    place(after);
    _before = before;
    _after = after;
    write(_after);
}

void ModifyDirections::revert()
{
    write(_before);
}

void ModifyDirections::write(const MasterTrack::DirectionSlots &directions)
{
    const auto &master = model().masterTrack();
    master->setDirectionSlots(directions);
    master->updatePlayList();
}

void ModifyDirections::announceApplied()
{
    announce(_before, _after);
}

void ModifyDirections::announceReverted()
{
    announce(_after, _before);
}

void ModifyDirections::announce(const MasterTrack::DirectionSlots &before,
                                const MasterTrack::DirectionSlots &after)
{
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (before[i] != after[i])
            score().notify(
                this, evt::MasterBarDirection(static_cast<DirectionMark>(i), before[i], after[i]));
    }
    score().notify(this, evt::RequestMasterBarPlaylistUpdate());
}

} // namespace zarn
