// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstddef>
#include <memory>
#include <typeinfo>
#include <utility>
#include <vector>

namespace utils {

class ScopedConnection;

/// What signals of all event types have in common, which is all but the types: the connections, who
/// is called when, and what happens to requests during an emission. It is compiled once; a
/// `Signal<E>` adds what makes and calls slots of its event.
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

    const std::type_info &eventType() const noexcept { return _eventType; }

    /// Removes every connection of the object.
    void disconnect(const void *object);

    /// Ends the connection of a scope: it is not called any more, not even by an emission that is
    /// running.
    void silence(const Scope &scope) noexcept;

    /// Ends all connections, and makes none any more. A callable that dies of it may disconnect
    /// and connect: the first finds nothing left to do, the second is dropped.
    void close() noexcept;

    void setBlocked(bool blocked) noexcept { _isBlocked = blocked; }
    bool isBlocked() const noexcept { return _isBlocked; }
    bool isEmitting() const noexcept { return _depth > 0; }

    /// Who notified the innermost emission that is running; null outside of one.
    const void *currentSender() const noexcept { return _sender; }

    std::size_t connectionCount() const noexcept { return _connections.size(); }

protected:
    /// A callable of an event whose type only the signal knows.
    class ErasedSlot {
    public:
        virtual ~ErasedSlot();
        ErasedSlot(const ErasedSlot &) = delete;
        ErasedSlot &operator=(const ErasedSlot &) = delete;

    protected:
        ErasedSlot() = default;
    };

    /// Calls a slot of the signal with an event of its type.
    using Deliver = void (*)(ErasedSlot &slot, const void *event);

    SignalBase(const std::type_info &eventType, Deliver deliver) noexcept
        : _eventType(eventType), _deliver(deliver)
    {
    }

    /// Connects as soon as no emission runs; drops the slot when the signal is closed.
    void add(const void *object, std::unique_ptr<ErasedSlot> slot, int priority);

    /// The same, for as long as the answer lives.
    ScopedConnection addScoped(const void *object, std::unique_ptr<ErasedSlot> slot, int priority);

    /// `event` is of the signal's event type.
    void emitEvent(const void *sender, const void *event);

private:
    class Emission;

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

    struct Connection {
        std::unique_ptr<ErasedSlot> slot; ///< dies after the tie: it may own the other end
        const void *object = nullptr;
        Tie tie;
        int priority = 0;
        bool isSilenced = false;
    };

    void request(const void *object, std::unique_ptr<ErasedSlot> slot, int priority,
                 std::shared_ptr<Scope> scope);
    void settle() noexcept;
    void sweep() noexcept;
    void insert(Connection &&connection) noexcept;
    static void destroyFrom(std::size_t first, std::vector<Connection> &store) noexcept;
    static void warnOfSecondConnection() noexcept;

    const std::type_info &_eventType;
    const Deliver _deliver;
    std::vector<Connection> _connections; ///< sorted by priority
    std::vector<Connection> _pendingConnections;
    std::vector<const void *> _pendingDisconnections;
    const void *_sender = nullptr;
    unsigned _depth = 0;
    bool _hasRequests = false;
    bool _isBlocked = false;
    bool _isClosed = false;
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
