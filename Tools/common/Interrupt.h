// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>

namespace zarn::tool {

/// As long as there is one, Ctrl-C and a request to end do not end the program, which asks here
/// whether it is to. One at a time.
class Interrupt {
public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt &) = delete;
    Interrupt &operator=(const Interrupt &) = delete;

    static bool isAsked() noexcept;

private:
    struct sigaction _interrupt = {};
    struct sigaction _terminate = {};
};

} // namespace zarn::tool
