// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/ZarnPlaces.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace zarn {

/// Base of commands that give one attribute of some nodes a new value. `Places` says which nodes,
/// and which event tells of them (see ZarnPlaces.h); `Get` and `Set` are the node's accessors.
///
/// A concrete command adds an `init` that records its arguments and ends with `prepare`.
template <class Places, auto Get, auto Set>
class SetAttribute : public ScoreCommand {
public:
    using Node = typename Places::Node;
    using Value = std::decay_t<std::invoke_result_t<decltype(Get), const Node &>>;

protected:
    using ScoreCommand::ScoreCommand;

    /// Remembers what is to be done; false when the places name no node, or cannot name one.
    bool prepare(Score *score, Places places, Value value)
    {
        setScore(score);
        _places = std::move(places);
        _value = std::move(value);
        return _places.canExist()
            && expectPlace([this] { return !_places.nodes(model()).empty(); });
    }

    const Places &places() const noexcept { return _places; }
    const Value &value() const noexcept { return _value; }

    /// Brings up to date what follows from the attribute, after each change.
    virtual void settle() { }

    /// Sends the events of a change, forwards and backwards.
    virtual void announce() { _places.announce(score(), this); }

private:
    using Nodes = std::vector<std::shared_ptr<Node>>;

    void apply() override
    {
        const Nodes nodes = _places.nodes(model());
        requirePlace(!nodes.empty());
        _before = write(nodes, std::vector<Value>(nodes.size(), _value));
        settle();
    }

    void revert() override
    {
        const Nodes nodes = _places.nodes(model());
        ZARN_ASSERT_IN("zarn::SetAttribute::revert", nodes.size() == _before.size());
        write(nodes, _before);
        settle();
    }

    /// Gives each node its value and answers the old ones; when a setter throws, the nodes before
    /// it have their old values again.
    static std::vector<Value> write(const Nodes &nodes, const std::vector<Value> &values)
    {
        std::vector<Value> before;
        before.reserve(nodes.size());
        try {
            for (std::size_t i = 0; i < nodes.size(); ++i) {
                before.push_back(std::invoke(Get, std::as_const(*nodes[i])));
                std::invoke(Set, *nodes[i], static_cast<Value>(values[i]));
            }
        } catch (...) {
            for (std::size_t i = 0; i < before.size(); ++i)
                std::invoke(Set, *nodes[i], static_cast<Value>(before[i]));
            throw;
        }
        return before;
    }

    void announceApplied() override { announce(); }
    void announceReverted() override { announce(); }

    Places _places;
    Value _value{};
    std::vector<Value> _before;
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

/// Sets an attribute of neighbouring bars of one staff.
template <auto Get, auto Set, class Event>
using SetOnStaffBars = SetAttribute<StaffBarPlaces<Event>, Get, Set>;

/// Sets an attribute of one staff.
template <auto Get, auto Set, class Event>
using SetOnStaff = SetAttribute<StaffPlace<Event>, Get, Set>;

} // namespace zarn
