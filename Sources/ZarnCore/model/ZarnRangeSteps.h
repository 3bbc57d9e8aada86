// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace zarn {

/// How the iterators over a range are used: in a loop of steps,
///
///     for (RangeBeatIterator it(range); it.oneStep();)
///         use(it.beat());
///
/// or by hand, with `it.iterate()` as the condition and `it.advance()` behind the body. A new
/// iterator stands on the first element, at the end when there is none. `Iterator` brings
/// `bool iterate() const` and `void advance()`, which does nothing at the end.
///
/// The iterators are values without owners: nodes are reached through the model, which must live.
/// Attributes may change on the way. Of the structure, only the kind of node that an iterator hands
/// out may be put in or taken out, where it stands: it goes on at the same number, or behind what
/// is left. The nodes above must stay, or the walk is over: make a new iterator.
template <class Iterator>
class RangeSteps {
public:
    /// Moves to the next element, at first to the one that the iterator stands on; false when there
    /// is none. `advance` inside of the loop passes an element over.
    bool oneStep()
    {
        auto &iterator = static_cast<Iterator &>(*this);
        if (_isStepPending)
            iterator.advance();
        _isStepPending = true;
        return iterator.iterate();
    }

    /// Makes the next `oneStep` stay on the current element, so that another loop can begin with
    /// it.
    void leaveStep() noexcept { _isStepPending = false; }

protected:
    RangeSteps() noexcept = default;
    RangeSteps(const RangeSteps &) noexcept = default;
    RangeSteps &operator=(const RangeSteps &) noexcept = default;
    ~RangeSteps() = default;

    /// The element at a number; an empty one when it is not there.
    template <class Node, class Nodes>
    static const std::shared_ptr<Node> &elementAt(const Nodes &nodes, unsigned number) noexcept
    {
        static const std::shared_ptr<Node> none;
        return number < nodes.size() ? nodes[number] : none;
    }

private:
    bool _isStepPending = false;
};

} // namespace zarn
