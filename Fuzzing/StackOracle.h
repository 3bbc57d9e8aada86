// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <vector>

namespace fuzz {

/// What a command stack promises, kept apart from it: for each step the score as it was before.
class StackOracle {
public:
    explicit StackOracle(std::size_t maximum) : _maximum(maximum) { }

    std::size_t undoCount() const noexcept { return _done.size(); }
    std::size_t redoCount() const noexcept { return _undone.size(); }
    std::size_t maximum() const noexcept { return _maximum; }

    /// Whether `clearUndoStack` reaches every command: not behind the seam of a ring that has
    /// wrapped.
    bool isClearable() const noexcept { return _done.empty() || _done.size() == _top + 1; }

    /// Forgets everything.
    void setMaximum(std::size_t maximum);
    void forgetUndo();
    void forgetRedo() { _undone.clear(); }

    void push(std::string before);

    /// Answer what the score is behind the step; for counts above 0.
    std::string undo(std::string before);
    std::string redo(std::string before);

private:
    void store(std::string before);

    std::deque<std::string> _done;
    std::vector<std::string> _undone;
    std::size_t _maximum;
    std::size_t _top = std::size_t(0) - 1; ///< place of the newest command in the ring
};

} // namespace fuzz
