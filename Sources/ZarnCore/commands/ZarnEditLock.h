// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <atomic>
#include <mutex>
#include <thread>

namespace zarn {

/// Keeps the commands of a score apart from its readers on other threads, and steps out of steps.
class ZARNCORE_EXPORT EditLock {
public:
    /// Marks that a step is under way, on every way out no longer.
    class Step {
    public:
        explicit Step(EditLock &lock) noexcept : _lock(lock) { _lock._isInsideStep = true; }
        ~Step() { _lock._isInsideStep = false; }
        Step(const Step &) = delete;
        Step &operator=(const Step &) = delete;

    private:
        EditLock &_lock;
    };

    /// Waits for a reader to end, then keeps readers out. Raises where this thread is the reader.
    class Hold {
    public:
        explicit Hold(EditLock &lock) : _lock(lock)
        {
            _lock.requireNotLockedHere("zarn::CommandStack::lock");
            _lock._mutex.lock();
            _lock._owner.store(std::this_thread::get_id(), std::memory_order_relaxed);
        }
        ~Hold() { _lock.release(); }
        Hold(const Hold &) = delete;
        Hold &operator=(const Hold &) = delete;

    private:
        EditLock &_lock;
    };

    /// See `CommandStack`.
    bool tryLock();
    void unlock();

    /// Raises from inside a step, and on a thread that has the lock; editing thread only.
    void requireOutsideStep(const char *function) const
    {
        if (_isInsideStep)
            raiseInsideStep(function);
        requireNotLockedHere(function);
    }

private:
    void requireNotLockedHere(const char *function) const
    {
        const std::thread::id owner = _owner.load(std::memory_order_relaxed);
        if (owner != std::thread::id() && owner == std::this_thread::get_id())
            raiseLockedHere(function);
    }
    void release() noexcept
    {
        _owner.store(std::thread::id(), std::memory_order_relaxed);
        _mutex.unlock();
    }
    [[noreturn]] static void raiseInsideStep(const char *function);
    [[noreturn]] static void raiseLockedHere(const char *function);

    std::mutex _mutex;
    std::atomic<std::thread::id> _owner{std::thread::id()}; ///< who has it; nobody by default
    bool _isInsideStep = false;
};

} // namespace zarn
