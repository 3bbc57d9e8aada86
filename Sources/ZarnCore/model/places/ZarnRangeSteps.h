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
/// The iterators are values without owners that point into the tree. Attributes may change on the
/// way, but what a range walks through may gain and lose no nodes until the walk is over: take a
/// list first where it shall. An element is a reference into the tree; copy it to keep it.
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

    /// The element at the end.
    template <class Node>
    static const std::shared_ptr<Node> &nothing() noexcept
    {
        static const std::shared_ptr<Node> none;
        return none;
    }

private:
    bool _isStepPending = false;
};

} // namespace zarn
