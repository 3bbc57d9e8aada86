// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnEditLock.h>

#include <ZarnCore/ZarnAssert.h>

#include <chrono>

namespace zarn {

bool EditLock::tryLock()
{
    return take();
}

void EditLock::unlock()
{
    ZARN_ASSERT_IN("zarn::CommandStack::unlock",
                   _owner.load(std::memory_order_relaxed) == std::this_thread::get_id());
    const std::lock_guard<std::mutex> lock(_waiting);
    release();
    _released.notify_all();
}

void EditLock::waitAndTake()
{
    // Only readers wake the one who waits, so the end of a step elsewhere must be looked for.
    std::unique_lock<std::mutex> lock(_waiting);
    while (!_released.wait_for(lock, std::chrono::milliseconds(1), [this] { return take(); }))
        continue;
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
