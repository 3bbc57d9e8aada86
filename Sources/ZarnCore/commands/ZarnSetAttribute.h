// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetEach.h>

#include <cstddef>
#include <optional>
#include <utility>

namespace zarn {

/// Base of commands that give one attribute of some nodes a new value, the same for all; see
/// `SetEach` for the parameters.
///
/// A concrete command adds an `init` that records its arguments and ends with `prepare`.
template <class Places, auto Get, auto Set>
class SetAttribute : public SetEach<Places, Get, Set> {
    using Base = SetEach<Places, Get, Set>;

public:
    using typename Base::Node;
    using typename Base::Value;

protected:
    using Base::Base;

    /// Remembers what is to be done; false when the places name no node, or cannot name one.
    bool prepare(Score *score, Places places, Value value)
    {
        _value = std::move(value);
        return Base::prepare(score, std::move(places));
    }

    const Value &value() const noexcept { return _value; }

private:
    std::optional<Value> next(std::size_t, const Node &) const final { return _value; }

    Value _value{};
};

/// Sets an attribute of every bar, beat or note of a range.
template <class Node, auto Get, auto Set, class Event = evt::ModifyBarRange>
using SetOnRange = SetAttribute<RangePlaces<Node, Event>, Get, Set>;

/// Sets an attribute of neighbouring master bars.
template <auto Get, auto Set, class Event>
using SetOnMasterBars = SetAttribute<MasterBarPlaces<Event>, Get, Set>;

/// Sets an attribute of one track.
template <auto Get, auto Set, class Event>
using SetOnTrack = SetAttribute<TrackPlace<Event>, Get, Set>;

/// Turns a switch of one track on or off.
template <auto Get, auto Set, class Event>
class SetTrackSwitch : public SetAttribute<TrackSwitchPlace<Event, Get>, Get, Set> {
protected:
    using SetAttribute<TrackSwitchPlace<Event, Get>, Get, Set>::SetAttribute;

    /// Records the arguments too.
    bool prepareSwitch(Score *score, unsigned track, bool isOn)
    {
        this->addArg(QStringLiteral("TrackIndex"), QString::number(track));
        this->addArg(QStringLiteral("Checked"),
                     isOn ? QStringLiteral("true") : QStringLiteral("false"));
        return this->prepare(score, {{track}}, isOn);
    }
};

/// Sets an attribute of one track with frets.
template <auto Get, auto Set, class Event>
using SetOnFrettedTrack = SetAttribute<FrettedTrackPlace<Event>, Get, Set>;

/// Sets an attribute of the master track.
template <auto Get, auto Set, class Event>
using SetOnMasterTrack = SetAttribute<MasterTrackPlace<Event>, Get, Set>;

/// Sets an attribute of neighbouring bars of one staff.
template <auto Get, auto Set, class Event>
using SetOnStaffBars = SetAttribute<StaffBarPlaces<Event>, Get, Set>;

/// Sets an attribute of one staff.
template <auto Get, auto Set, class Event>
using SetOnStaff = SetAttribute<StaffPlace<Event>, Get, Set>;

} // namespace zarn
