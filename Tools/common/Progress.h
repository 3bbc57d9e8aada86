// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace zarn::tool {

class Terminal;

/// One line on standard error that says what takes so long and for how long already. It is drawn
/// only on a terminal and only when the work lasts, by a thread of its own, and is gone when the
/// work is done.
class Progress {
public:
    /// `task` is what is being done, such as "reading band.mxl".
    Progress(const Terminal &terminal, const std::string &task);
    ~Progress();
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

private:
    void draw();

    std::string _line;
    std::mutex _mutex;
    std::condition_variable _wake;
    bool _isDone = false;
    std::thread _thread;
};

} // namespace zarn::tool
