// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterTrack/ZarnModifyDirections.h>

#include <ZarnCore/events/ZarnMasterBarEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn {

ModifyDirections::~ModifyDirections() = default;

bool ModifyDirections::hasBar() const
{
    return _bar >= 0 && model().masterTrack()->hasMasterBarIndex(static_cast<unsigned>(_bar));
}

void ModifyDirections::apply()
{
    const auto &master = *model().masterTrack();
    Directions before = {master.directionSlots(), 0};
    if (hasBar())
        before.further = master.masterBar(static_cast<unsigned>(_bar))->furtherDirections();
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

void ModifyDirections::write(const Directions &directions)
{
    const auto &master = model().masterTrack();
    master->setDirectionSlots(directions.barOfKind);
    if (hasBar())
        master->masterBar(static_cast<unsigned>(_bar))->setFurtherDirections(directions.further);
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

void ModifyDirections::announce(const Directions &before, const Directions &after)
{
    for (std::size_t i = 0; i < before.barOfKind.size(); ++i) {
        if (before.barOfKind[i] != after.barOfKind[i])
            score().notify(this,
                           evt::MasterBarDirection(static_cast<DirectionMark>(i),
                                                   before.barOfKind[i], after.barOfKind[i]));
    }
    if (before.further != after.further)
        score().notify(
            this,
            evt::MasterBarAttribute(static_cast<unsigned>(_bar), static_cast<unsigned>(_bar)));
    score().notify(this, evt::RequestMasterBarPlaylistUpdate());
}

} // namespace zarn
