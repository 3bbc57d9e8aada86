// SPDX-License-Identifier: MIT
#include "StackOracle.h"

#include <utility>

namespace fuzz {

void StackOracle::setMaximum(std::size_t maximum)
{
    *this = StackOracle(maximum);
}

void StackOracle::forgetUndo()
{
    if (_done.empty())
        return;
    _done.clear();
    _top = std::size_t(0) - 1;
}

void StackOracle::push(std::string before)
{
    store(std::move(before));
    _undone.clear();
}

std::string StackOracle::undo(std::string before)
{
    _undone.push_back(std::move(before));
    std::string after = std::move(_done.back());
    _done.pop_back();
    _top = _top > 0 ? _top - 1 : _maximum - 1;
    return after;
}

std::string StackOracle::redo(std::string before)
{
    std::string after = std::move(_undone.back());
    _undone.pop_back();
    store(std::move(before));
    return after;
}

void StackOracle::store(std::string before)
{
    if (_maximum == 0)
        return;
    _done.push_back(std::move(before));
    if (_done.size() > _maximum)
        _done.pop_front();
    _top = _top + 1 < _maximum ? _top + 1 : 0;
}

} // namespace fuzz
