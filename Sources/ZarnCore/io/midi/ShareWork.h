// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <future>
#include <system_error>
#include <vector>

namespace zarn::io {

/// Does `count` pieces of work that have nothing to do with each other on up to so many threads,
/// this one among them, and returns when all are done. Each thread has a worker of its own from
/// `makeWorker`, which is called with the number of a piece; the pieces are handed out in their
/// order. What a worker raises is raised here, when the other threads have come to their end. Where
/// the system has no more threads, fewer do the work.
template <class MakeWorker>
void shareWork(std::size_t count, std::size_t threads, const MakeWorker &makeWorker)
{
    std::atomic<std::size_t> next{0};
    const auto work = [&] {
        auto worker = makeWorker();
        for (std::size_t piece = next++; piece < count; piece = next++)
            worker(piece);
    };
    std::vector<std::future<void>> others; // wait for their threads when they are destroyed
    try {
        while (others.size() + 1 < threads && others.size() + 1 < count)
            others.push_back(std::async(std::launch::async, work));
    } catch (const std::system_error &) {
    }
    work();
    for (std::future<void> &other : others)
        other.get();
}

} // namespace zarn::io
