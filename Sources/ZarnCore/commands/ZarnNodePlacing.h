// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnPlacingCommand.h>

#include <memory>
#include <utility>

namespace zarn {

/// Base of the commands that insert and remove one node at a place in its list.
template <class Node>
class NodePlacing : public PlacingCommand {
protected:
    using PlacingCommand::PlacingCommand;

    /// Remember a node that is out, or the place of one that is in, as what to place; false
    /// without a node, and when it cannot be there.
    bool prepareInsertion(Score *score, unsigned index, std::shared_ptr<Node> node)
    {
        setScore(score);
        _index = index;
        _node = std::move(node);
        return _node != nullptr && expectPlace([this] { return canGoIn(_index, _node); });
    }
    bool prepareRemoval(Score *score, unsigned index)
    {
        setScore(score);
        _index = index;
        return expectPlace([this] { return canGoOut(_index); });
    }

    int index() const noexcept { return static_cast<int>(_index); }

private:
    virtual bool canGoIn(unsigned index, const std::shared_ptr<Node> &node) const = 0;
    virtual bool canGoOut(unsigned index) const = 0;
    virtual void insert(unsigned index, const std::shared_ptr<Node> &node) = 0;
    virtual std::shared_ptr<Node> remove(unsigned index) = 0;

    void putIn() final
    {
        requirePlace(canGoIn(_index, _node));
        insert(_index, _node);
        _node.reset();
    }
    void takeOut() final
    {
        requirePlace(canGoOut(_index));
        _node = remove(_index);
    }

    unsigned _index = 0;
    std::shared_ptr<Node> _node; ///< while it is out of the model
};

} // namespace zarn
