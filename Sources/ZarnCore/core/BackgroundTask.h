// SPDX-License-Identifier: MIT
#pragma once

#include <QFuture>

#include <atomic>
#include <functional>

class QThreadPool;

namespace zarn {

/// Work that a pool does once, and that others wait for: whatever it wrote is seen after `wait`.
class BackgroundTask {
public:
    BackgroundTask();
    /// Waits.
    ~BackgroundTask();
    BackgroundTask(const BackgroundTask &) = delete;
    BackgroundTask &operator=(const BackgroundTask &) = delete;

    /// To be called once, before any thread waits. What the work raises is logged on "zarn.core".
    void start(QThreadPool &pool, std::function<void()> work);

    /// Returns at once when nothing was started. Not to be called by the work itself.
    void wait() const;

private:
    struct Entry {
        BackgroundTask *task;
        void operator()() const;
    };
    void run() noexcept;

    std::function<void()> _work;
    /// They hand over what was written before: to the worker, and to those who wait. The queue and
    /// the future do so too, but by means that ThreadSanitizer cannot see.
    std::atomic<bool> _isStarted = false;
    std::atomic<bool> _isFinished = false;
    QFuture<void> _future;
};

} // namespace zarn
