// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnEditLock.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn {

bool EditLock::tryLock()
{
    const auto self = std::this_thread::get_id();
    if (_owner.load(std::memory_order_relaxed) == self || !_mutex.try_lock())
        return false;
    _owner.store(self, std::memory_order_relaxed);
    return true;
}

void EditLock::unlock()
{
    ZARN_ASSERT_IN("zarn::CommandStack::unlock",
                   _owner.load(std::memory_order_relaxed) == std::this_thread::get_id());
    release();
}

void EditLock::raiseInsideStep(const char *function)
{
    ZARN_RAISE_IN(function,
                  "The command stack is in the middle of a step: a command, or a "
                  "listener of its events, must not change the stack");
}

void EditLock::raiseLockedHere(const char *function)
{
    ZARN_RAISE_IN(function,
                  "The command stack is locked by this very thread: call unlock() "
                  "before editing");
}

} // namespace zarn
