// SPDX-License-Identifier: MIT
#include <ZarnCore/model/layout/ZarnTrackGroup.h>

#include <algorithm>

namespace zarn {

namespace {

void takeIn(TrackGroup &group, unsigned index)
{
    if (index <= group.first)
        ++group.first;
    if (index <= group.last)
        ++group.last;
}

/// Not for the only track of a group.
void leaveOut(TrackGroup &group, unsigned index)
{
    if (index < group.first)
        --group.first;
    if (index <= group.last)
        --group.last;
}

bool holds(const TrackGroup &group, unsigned index)
{
    return group.first <= index && index <= group.last;
}

bool holdsAlone(const TrackGroup &group, unsigned index)
{
    return group.first == index && group.last == index;
}

} // namespace

TrackGroups groupsAfterInsertion(TrackGroups groups, unsigned index)
{
    for (TrackGroup &group : groups)
        takeIn(group, index);
    return groups;
}

TrackGroups groupsAfterRemoval(TrackGroups groups, unsigned index)
{
    const auto isGone = [index](const TrackGroup &group) { return holdsAlone(group, index); };
    groups.erase(std::remove_if(groups.begin(), groups.end(), isGone), groups.end());
    for (TrackGroup &group : groups)
        leaveOut(group, index);
    return groups;
}

TrackGroups groupsAfterMove(TrackGroups groups, unsigned from, unsigned to)
{
    for (TrackGroup &group : groups) {
        if (holdsAlone(group, from)) {
            group.first = to;
            group.last = to;
        } else if (!holds(group, from) || !holds(group, to)) {
            leaveOut(group, from);
            takeIn(group, to);
        }
    }
    return groups;
}

} // namespace zarn
