// SPDX-License-Identifier: MIT
#include <ZarnCore/core/BackgroundTask.h>

#include <ZarnCore/ZarnLog.h>

#include <QtConcurrent>

#include <exception>
#include <utility>

namespace zarn {

BackgroundTask::BackgroundTask() = default;

BackgroundTask::~BackgroundTask()
{
    wait();
}

void BackgroundTask::start(QThreadPool &pool, std::function<void()> work)
{
    _work = std::move(work);
    _isStarted.store(true, std::memory_order_release);
    _future = QtConcurrent::run(&pool, Entry{this});
}

void BackgroundTask::wait() const
{
    QFuture<void>(_future).waitForFinished();
    _isFinished.load(std::memory_order_acquire);
}

void BackgroundTask::Entry::operator()() const
{
    task->run();
}

void BackgroundTask::run() noexcept
{
    _isStarted.load(std::memory_order_acquire);
    try {
        _work();
    } catch (const std::exception &error) {
        qCWarning(log::core).noquote() << "[ZarnCore] in the background:" << error.what();
    }
    _isFinished.store(true, std::memory_order_release);
}

} // namespace zarn
