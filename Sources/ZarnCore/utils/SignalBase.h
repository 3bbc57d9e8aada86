// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <memory>
#include <typeinfo>
#include <utility>

namespace utils {

/// What signals of all event types have in common.
class ZARNCORE_EXPORT SignalBase {
public:
    /// What a `ScopedConnection` and the connection that it keeps have in common.
    struct Scope {
        explicit Scope(SignalBase *owner) noexcept : signal(owner) { }
        SignalBase *signal; ///< null when the connection is gone
    };

    virtual ~SignalBase();
    SignalBase(const SignalBase &) = delete;
    SignalBase &operator=(const SignalBase &) = delete;

    virtual const std::type_info &eventType() const noexcept = 0;

    /// Ends the connection of a scope: it is not called any more, not even by an emission that is
    /// running.
    virtual void silence(const Scope &scope) noexcept = 0;

    /// Ends all connections, and makes none any more. A callable that dies of it may disconnect
    /// and connect: the first finds nothing left to do, the second is dropped.
    virtual void close() noexcept = 0;

protected:
    /// The connection's end of a scope; most connections have none.
    class Tie {
    public:
        Tie() noexcept = default;
        explicit Tie(std::shared_ptr<Scope> scope) noexcept : _scope(std::move(scope)) { }
        Tie(Tie &&other) noexcept = default;
        Tie &operator=(Tie &&other) noexcept
        {
            _scope.swap(other._scope);
            return *this;
        }
        ~Tie()
        {
            if (_scope != nullptr)
                _scope->signal = nullptr;
        }
        bool isTo(const Scope &scope) const noexcept { return _scope.get() == &scope; }

    private:
        std::shared_ptr<Scope> _scope;
    };

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
