// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnRangeNodes.h>
#include <ZarnCore/events/ZarnBarEvents.h>
#include <ZarnCore/events/ZarnMasterBarEvents.h>
#include <ZarnCore/events/ZarnTrackEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>
#include <memory>
#include <vector>

/// Where a command does its work: coordinates that are resolved against the model each time it
/// runs, and the event that tells of the place. `nodes` is empty when the place does not exist;
/// `canExist` says whether some score has such a place.
namespace zarn {

/// The bars, beats or notes of a range. A range over several tracks is announced by
/// `ModifyBarRangeAllTracks`, any other by `Event`
/// for each staff.
template <class NodeType, class Event>
struct RangePlaces {
    using Node = NodeType;
    ScoreModelRange range;

    bool canExist() const noexcept { return zarn::canExist(range); }
    std::vector<std::shared_ptr<Node>> nodes(ScoreModel &model) const
    {
        return nodesInRange<Node>(model, range);
    }
    void announce(ScoreBase &score, const void *sender) const
    {
        const auto bars = std::minmax({range.first().barIndex(), range.second().barIndex()});
        if (range.isMultiTrack()) {
            score.notify(sender, evt::ModifyBarRangeAllTracks(bars.first, bars.second));
            return;
        }
        const auto staves = stavesOf(range);
        for (unsigned staff = staves.first; staff <= staves.second; ++staff)
            score.notify(sender,
                         Event(range.first().trackIndex(), static_cast<int>(staff), bars.first,
                               bars.second));
    }
};

/// The master bars `first` to `last`, both included.
template <class Event>
struct MasterBarPlaces {
    using Node = MasterBar;
    unsigned first = 0;
    unsigned last = 0;

    bool canExist() const noexcept { return first <= last; }
    std::vector<std::shared_ptr<Node>> nodes(ScoreModel &model) const
    {
        const auto &bars = model.masterTrack()->masterBars();
        if (first > last || last >= bars.size())
            return {};
        return {bars.begin() + first, bars.begin() + last + 1};
    }
    void announce(ScoreBase &score, const void *sender) const
    {
        score.notify(sender, Event(static_cast<int>(first), static_cast<int>(last)));
    }
};

/// The bars `first` to `last` of one staff, both included.
template <class Event>
struct StaffBarPlaces {
    using Node = Bar;
    unsigned track = 0;
    unsigned staff = 0;
    unsigned first = 0;
    unsigned last = 0;

    bool canExist() const noexcept { return first <= last; }
    std::vector<std::shared_ptr<Node>> nodes(ScoreModel &model) const
    {
        if (!model.hasTrackIndex(track) || staff >= model.track(track)->staffCount())
            return {};
        const auto &bars = model.track(track)->staves()[staff]->bars();
        if (first > last || last >= bars.size())
            return {};
        return {bars.begin() + first, bars.begin() + last + 1};
    }
    void announce(ScoreBase &score, const void *sender) const
    {
        score.notify(sender,
                     Event(static_cast<int>(track), static_cast<int>(staff),
                           static_cast<int>(first), static_cast<int>(last)));
    }
};

/// One track.
template <class Event>
struct TrackPlace {
    using Node = Track;
    unsigned track = 0;

    bool canExist() const noexcept { return true; }
    std::vector<std::shared_ptr<Node>> nodes(ScoreModel &model) const
    {
        if (!model.hasTrackIndex(track))
            return {};
        return {model.track(track)};
    }
    void announce(ScoreBase &score, const void *sender) const
    {
        score.notify(sender, Event(static_cast<int>(track)));
    }
};

/// One track, if any of its staves has strings and frets.
template <class Event>
struct FrettedTrackPlace : TrackPlace<Event> {
    std::vector<std::shared_ptr<Track>> nodes(ScoreModel &model) const
    {
        auto nodes = TrackPlace<Event>::nodes(model);
        if (!nodes.empty() && !nodes.front()->isFretted())
            nodes.clear();
        return nodes;
    }
};

/// One track; the event tells how a switch of it stands, as `IsOn` has it.
template <class Event, auto IsOn>
struct TrackSwitchPlace : TrackPlace<Event> {
    void announce(ScoreBase &score, const void *sender) const
    {
        const unsigned index = TrackPlace<Event>::track;
        const Track &node = *score.scoreModel()->tracks()[index];
        score.notify(sender, Event(static_cast<int>(index), (node.*IsOn)()));
    }
};

/// The master track, which is always there.
template <class Event>
struct MasterTrackPlace {
    using Node = MasterTrack;

    bool canExist() const noexcept { return true; }
    std::vector<std::shared_ptr<Node>> nodes(ScoreModel &model) const
    {
        return {model.masterTrack()};
    }
    void announce(ScoreBase &score, const void *sender) const { score.notify(sender, Event()); }
};

/// One staff of one track.
template <class Event>
struct StaffPlace {
    using Node = Staff;
    unsigned track = 0;
    unsigned staff = 0;

    bool canExist() const noexcept { return true; }
    std::vector<std::shared_ptr<Node>> nodes(ScoreModel &model) const
    {
        if (!model.hasTrackIndex(track) || staff >= model.track(track)->staffCount())
            return {};
        return {model.track(track)->staff(staff)};
    }
    void announce(ScoreBase &score, const void *sender) const
    {
        score.notify(sender, Event(static_cast<int>(track), static_cast<int>(staff)));
    }
};

} // namespace zarn
