// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace zarn {

/// Keeps the commands of a score apart from its readers on other threads, and steps out of steps.
///
/// Readers never wait, so a step that ends has nobody to wake: it costs one exchange to begin and a
/// store to end.
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
            if (!_lock.take())
                _lock.waitAndTake();
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
    /// False while anyone has it, this thread too.
    bool take() noexcept
    {
        std::thread::id nobody;
        return _owner.compare_exchange_strong(nobody, std::this_thread::get_id(),
                                              std::memory_order_acquire, std::memory_order_relaxed);
    }
    void release() noexcept { _owner.store(std::thread::id(), std::memory_order_release); }
    void waitAndTake();
    [[noreturn]] static void raiseInsideStep(const char *function);
    [[noreturn]] static void raiseLockedHere(const char *function);

    std::atomic<std::thread::id> _owner{std::thread::id()}; ///< who has it; nobody by default
    std::mutex _waiting;                                    ///< of the step that waits for a reader
    std::condition_variable _released;
    bool _isInsideStep = false;
};

} // namespace zarn
