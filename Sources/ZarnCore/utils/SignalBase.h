// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <memory>
#include <typeinfo>

namespace utils {

/// What signals of all event types have in common.
class ZARNCORE_EXPORT SignalBase {
public:
    /// Ties a `ScopedConnection` to the connection that it keeps; knows when the signal is gone.
    struct Scope {
        explicit Scope(SignalBase *owner) noexcept : signal(owner) { }
        SignalBase *signal;
    };

    virtual ~SignalBase();
    SignalBase(const SignalBase &) = delete;
    SignalBase &operator=(const SignalBase &) = delete;

    virtual const std::type_info &eventType() const noexcept = 0;

    /// Ends the connection of a scope: it is not called any more, not even by an emission that is
    /// running.
    virtual void silence(const Scope &scope) noexcept = 0;

protected:
    SignalBase() = default;
    static void warnOfSecondConnection() noexcept;
};

/// Keeps a connection for as long as it lives; its end silences the listener at once. May outlive
/// the signal.
class ZARNCORE_EXPORT ScopedConnection {
public:
    ScopedConnection() noexcept = default;
    explicit ScopedConnection(std::shared_ptr<SignalBase::Scope> scope) noexcept;
    ScopedConnection(ScopedConnection &&other) noexcept;
    ScopedConnection &operator=(ScopedConnection &&other) noexcept;
    ~ScopedConnection();

    /// Disconnects now.
    void reset() noexcept;

    bool isConnected() const noexcept;

private:
    std::shared_ptr<SignalBase::Scope> _scope;
};

} // namespace utils
