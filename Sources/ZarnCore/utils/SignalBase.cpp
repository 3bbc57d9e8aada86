// SPDX-License-Identifier: MIT
#include <ZarnCore/utils/SignalBase.h>

#include <iostream>
#include <utility>

namespace utils {

SignalBase::~SignalBase() = default;

void SignalBase::warnOfSecondConnection() noexcept
{
    // The spelling is part of the text.
    std::cerr << "[WARNING] Object allreacty connected to score\n";
}

ScopedConnection::ScopedConnection(std::shared_ptr<SignalBase::Scope> scope) noexcept
    : _scope(std::move(scope))
{
}

ScopedConnection::ScopedConnection(ScopedConnection &&other) noexcept = default;

ScopedConnection &ScopedConnection::operator=(ScopedConnection &&other) noexcept
{
    if (this != &other) {
        reset();
        _scope = std::move(other._scope);
    }
    return *this;
}

ScopedConnection::~ScopedConnection()
{
    reset();
}

void ScopedConnection::reset() noexcept
{
    const auto scope = std::exchange(_scope, nullptr);
    if (scope != nullptr && scope->signal != nullptr)
        scope->signal->silence(*scope);
}

bool ScopedConnection::isConnected() const noexcept
{
    return _scope != nullptr && _scope->signal != nullptr;
}

} // namespace utils
