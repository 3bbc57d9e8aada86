// SPDX-License-Identifier: MIT
#include "common/Interrupt.h"

namespace zarn::tool {

namespace {

volatile std::sig_atomic_t asked = 0;

void ask(int)
{
    asked = 1;
}

} // namespace

Interrupt::Interrupt()
{
    asked = 0;
    struct sigaction action = {};
    action.sa_handler = ask;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, &_interrupt);
    sigaction(SIGTERM, &action, &_terminate);
}

Interrupt::~Interrupt()
{
    sigaction(SIGINT, &_interrupt, nullptr);
    sigaction(SIGTERM, &_terminate, nullptr);
}

bool Interrupt::isAsked() noexcept
{
    return asked != 0;
}

} // namespace zarn::tool
