// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/ZarnPlaces.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

namespace zarn {

/// Base of commands that give one attribute of some nodes new values, each node its own: given with
/// the command, or worked out from what the node is. `Places` says which nodes, and which event
/// tells of them (see ZarnPlaces.h); `Get` and `Set` are the node's accessors.
///
/// A concrete command implements `next`, and its `init` records its arguments and ends with
/// `prepare`.
template <class Places, auto Get, auto Set>
class SetEach : public ScoreCommand {
public:
    using Node = typename Places::Node;
    using Value = std::decay_t<std::invoke_result_t<decltype(Get), const Node &>>;

protected:
    using ScoreCommand::ScoreCommand;

    /// Remembers where to work; false when the places name no node that is to get a value, or
    /// cannot name one.
    bool prepare(Score *score, Places places)
    {
        setScore(score);
        _places = std::move(places);
        return _places.canExist()
            && expectPlace([this] { return canChange(_places.nodes(model())); });
    }

    const Places &places() const noexcept { return _places; }

    /// The value that a node is to have, whether or not it has it; nothing to pass it over.
    /// `number` counts the nodes of the places from 0. Changes no node.
    virtual std::optional<Value> next(std::size_t number, const Node &node) const = 0;

    /// Called before any node changes.
    virtual void begin() { }

    /// Brings up to date what follows from the attribute, after each change.
    virtual void settle() { }

    /// Sends the events of a change, forwards and backwards.
    virtual void announce() { _places.announce(score(), this); }

private:
    using Nodes = std::vector<std::shared_ptr<Node>>;

    bool canChange(const Nodes &nodes) const
    {
        for (std::size_t i = 0; i < nodes.size(); ++i)
            if (next(i, *nodes[i]))
                return true;
        return false;
    }

    void apply() override
    {
        const Nodes nodes = _places.nodes(model());
        begin();
        std::vector<Value> before;
        before.reserve(nodes.size());
        bool isAnyChanged = false;
        try {
            for (std::size_t i = 0; i < nodes.size(); ++i) {
                std::optional<Value> value = next(i, *nodes[i]);
                before.push_back(std::invoke(Get, std::as_const(*nodes[i])));
                if (!value)
                    continue;
                isAnyChanged = true;
                std::invoke(Set, *nodes[i], *std::move(value));
            }
        } catch (...) {
            putBack(nodes, before);
            throw;
        }
        requirePlace(isAnyChanged);
        _before = std::move(before);
        settle();
    }

    void revert() override
    {
        const Nodes nodes = _places.nodes(model());
        ZARN_ASSERT_IN("zarn::SetEach::revert", nodes.size() == _before.size());
        putBack(nodes, _before);
        settle();
    }

    /// Gives the first nodes the values that they had, one for each value.
    static void putBack(const Nodes &nodes, const std::vector<Value> &values)
    {
        for (std::size_t i = 0; i < values.size(); ++i)
            std::invoke(Set, *nodes[i], static_cast<Value>(values[i]));
    }

    void announceApplied() override { announce(); }
    void announceReverted() override { announce(); }

    Places _places;
    std::vector<Value> _before; ///< of all nodes of the places
};

} // namespace zarn
