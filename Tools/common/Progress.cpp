// SPDX-License-Identifier: MIT
#include "common/Progress.h"

#include "common/Terminal.h"

#include <chrono>
#include <iostream>

namespace zarn::tool {

namespace {

constexpr auto Patience = std::chrono::milliseconds(400);
constexpr auto BetweenDrawings = std::chrono::milliseconds(250);
constexpr std::size_t RoomForSeconds = 12;

} // namespace

Progress::Progress(const Terminal &terminal, const std::string &task)
    : _line("zarn: " + printable(task))
{
    if (!terminal.showsProgress())
        return;
    const auto room = static_cast<std::size_t>(terminal.width());
    if (_line.size() + RoomForSeconds > room)
        _line.resize(room > RoomForSeconds ? room - RoomForSeconds : 0);
    _thread = std::thread([this] { draw(); });
}

Progress::~Progress()
{
    if (!_thread.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(_mutex);
        _isDone = true;
    }
    _wake.notify_one();
    _thread.join();
}

void Progress::draw()
{
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    std::unique_lock<std::mutex> lock(_mutex);
    if (_wake.wait_for(lock, Patience, [this] { return _isDone; }))
        return;
    do {
        const auto passed = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - start);
        std::cerr << '\r' << _line << " ... " << passed.count() << " s\x1b[K" << std::flush;
    } while (!_wake.wait_for(lock, BetweenDrawings, [this] { return _isDone; }));
    std::cerr << "\r\x1b[K" << std::flush;
}

} // namespace zarn::tool
