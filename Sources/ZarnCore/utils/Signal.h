// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/SignalBase.h>

#include <algorithm>
#include <exception>
#include <functional>
#include <memory>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

namespace utils {

/// Delivers events of one type to the objects that are connected to it: synchronously, on the
/// thread that notifies, in ascending priority; connections of equal priority in the order in which
/// they were made.
///
/// A listener may notify, connect and disconnect, on this signal too, and it may throw. What is
/// connected or disconnected during an emission takes effect when the outermost emission ends: all
/// disconnections first, then the connections in the order in which they were asked for. So an
/// object that is disconnected in the middle of an emission may still be called by it; a listener
/// that dies there holds a `ScopedConnection` instead, which silences it at once.
///
/// A listener that throws keeps the event from nobody: those behind it are called, then the
/// exception reaches the notifier, the first one where several throw. Not thread-safe: one thread
/// at a time.
template <class E>
class Signal final : public SignalBase {
public:
    /// One connection's callable, whatever its type.
    class AbstractSlot {
    public:
        virtual ~AbstractSlot() = default;
        virtual void call(const E &event) = 0;
        virtual const std::type_info &eventType() const noexcept = 0;
    };

    /// A listening object and what is called for it.
    template <class Object, class Callable>
    class Slot;

    Signal() = default;
    ~Signal() override;

    /// Calls `callable(event)`, or a member function of `object`, for each event. The object is the
    /// identity to disconnect by; it is not owned and need not be connected only once, but a second
    /// connection is reported on the standard error stream. Raises nothing but what copying the
    /// callable raises.
    template <class Object, class Callable>
    void connect(Object *object, Callable &&callable, int priority = 0)
    {
        request(object, std::forward<Callable>(callable), priority, nullptr);
    }

    /// The same, for as long as the answer lives.
    template <class Object, class Callable>
    [[nodiscard]] ScopedConnection connectScoped(Object *object, Callable &&callable,
                                                 int priority = 0)
    {
        const auto scope = std::make_shared<Scope>(this);
        request(object, std::forward<Callable>(callable), priority, scope);
        return ScopedConnection(scope);
    }

    /// Removes every connection of the object.
    void disconnect(const void *object);

    /// Delivers the event; nothing is delivered while the signal is blocked.
    void notify(const void *sender, const E &event)
    {
        if (!_connections.empty())
            emitEvent(sender, event);
    }

    void setBlocked(bool blocked) noexcept { _isBlocked = blocked; }
    bool isBlocked() const noexcept { return _isBlocked; }
    bool isEmitting() const noexcept { return _depth > 0; }

    /// Who notified the innermost emission that is running; null outside of one.
    const void *currentSender() const noexcept { return _sender; }

    std::size_t connectionCount() const noexcept { return _connections.size(); }

    const std::type_info &eventType() const noexcept override { return typeid(E); }

private:
    struct Connection {
        std::unique_ptr<AbstractSlot> slot; ///< dies after the tie: it may own the other end
        const void *object = nullptr;
        Tie tie;
        int priority = 0;
        bool isSilenced = false;
    };

    /// Marks an emission, or the changes after one, and undoes the mark on every way out.
    class Emission {
    public:
        Emission(Signal &signal, const void *sender) noexcept
            : _signal(signal), _outerSender(std::exchange(signal._sender, sender))
        {
            ++_signal._depth;
        }
        ~Emission()
        {
            _signal._sender = _outerSender;
            if (_signal._depth == 1 && _signal._hasRequests)
                _signal.settle();
            --_signal._depth;
        }
        Emission(const Emission &) = delete;
        Emission &operator=(const Emission &) = delete;

    private:
        Signal &_signal;
        const void *_outerSender;
    };

    template <class Object, class Callable>
    void request(Object *object, Callable &&callable, int priority, std::shared_ptr<Scope> scope);
    void emitEvent(const void *sender, const E &event);
    void silence(const Scope &scope) noexcept override;
    void close() noexcept override;
    void settle() noexcept;
    void sweep() noexcept;
    void insert(Connection &&connection) noexcept;
    static void destroyFrom(std::size_t first, std::vector<Connection> &store) noexcept;

    std::vector<Connection> _connections; ///< sorted by priority
    std::vector<Connection> _pendingConnections;
    std::vector<const void *> _pendingDisconnections;
    const void *_sender = nullptr;
    unsigned _depth = 0;
    bool _hasRequests = false;
    bool _isBlocked = false;
    bool _isClosed = false;
};

template <class E>
template <class Object, class Callable>
class Signal<E>::Slot final : public Signal<E>::AbstractSlot {
public:
    template <class C>
    Slot(Object *object, C &&callable) : _object(object), _callable(std::forward<C>(callable))
    {
    }

    void call(const E &event) override
    {
        if constexpr (std::is_invocable_v<Callable &, const E &>)
            std::invoke(_callable, event);
        else
            std::invoke(_callable, _object, event);
    }

    const std::type_info &eventType() const noexcept override { return typeid(E); }

private:
    Object *_object;
    Callable _callable;
};

template <class E>
Signal<E>::~Signal()
{
    close();
}

/// Requests of the callables that die have the stores to go to, and nobody to take them up.
template <class E>
void Signal<E>::close() noexcept
{
    _isClosed = true;
    ++_depth;
    destroyFrom(0, _connections);
    destroyFrom(0, _pendingConnections);
}

template <class E>
void Signal<E>::disconnect(const void *object)
{
    _pendingDisconnections.push_back(object);
    _hasRequests = true;
    if (_depth == 0)
        Emission(*this, nullptr);
}

template <class E>
template <class Object, class Callable>
void Signal<E>::request(Object *object, Callable &&callable, int priority,
                        std::shared_ptr<Scope> scope)
{
    using SlotType = Slot<Object, std::decay_t<Callable>>;
    Tie tie(std::move(scope));
    if (_isClosed)
        return;
    Connection connection;
    connection.slot = std::make_unique<SlotType>(object, std::forward<Callable>(callable));
    connection.object = object;
    connection.tie = std::move(tie);
    connection.priority = priority;
    // Room is made here, where a failure can still be raised; settling needs none.
    const std::size_t needed = _connections.size() + _pendingConnections.size() + 1;
    if (needed > _connections.capacity())
        _connections.reserve(std::max(needed, 2 * _connections.capacity()));
    _pendingConnections.push_back(std::move(connection));
    _hasRequests = true;
    if (_depth == 0)
        Emission(*this, nullptr);
}

template <class E>
void Signal<E>::emitEvent(const void *sender, const E &event)
{
    const Emission emission(*this, sender);
    if (_isBlocked)
        return;
    // By index: a request made by a listener may move the store, but never adds to it or removes.
    const std::size_t count = _connections.size();
    std::exception_ptr failure;
    for (std::size_t i = 0; i < count; ++i) {
        const Connection &connection = _connections[i];
        if (connection.isSilenced)
            continue;
        try {
            connection.slot->call(event);
        } catch (...) {
            if (!failure)
                failure = std::current_exception();
        }
    }
    if (failure)
        std::rethrow_exception(failure);
}

template <class E>
void Signal<E>::silence(const Scope &scope) noexcept
{
    for (auto *store : {&_connections, &_pendingConnections}) {
        for (Connection &connection : *store) {
            if (connection.tie.isTo(scope))
                connection.isSilenced = true;
        }
    }
    _hasRequests = true;
    if (_depth == 0)
        Emission(*this, nullptr);
}

/// Applies the requests. Destroying a callable may run a listener's code, which may ask for more;
/// the emission that is still marked keeps that in the pending stores until the loop takes it.
template <class E>
void Signal<E>::settle() noexcept
{
    while (_hasRequests) {
        _hasRequests = false;
        for (const void *object : std::exchange(_pendingDisconnections, {})) {
            for (Connection &connection : _connections)
                connection.isSilenced = connection.isSilenced || connection.object == object;
        }
        sweep();
        for (Connection &connection : std::exchange(_pendingConnections, {})) {
            if (!connection.isSilenced)
                insert(std::move(connection));
        }
    }
}

/// Destroys what is silenced.
template <class E>
void Signal<E>::sweep() noexcept
{
    std::size_t kept = 0;
    for (std::size_t i = 0; i < _connections.size(); ++i) {
        if (_connections[i].isSilenced)
            continue;
        if (kept != i)
            std::swap(_connections[kept], _connections[i]);
        ++kept;
    }
    destroyFrom(kept, _connections);
}

/// Last one first, one by one, with the store in order each time a callable dies.
template <class E>
void Signal<E>::destroyFrom(std::size_t first, std::vector<Connection> &store) noexcept
{
    while (store.size() > first) {
        const Connection dead = std::move(store.back());
        store.pop_back();
    }
}

template <class E>
void Signal<E>::insert(Connection &&connection) noexcept
{
    const bool isKnown =
        std::any_of(_connections.begin(), _connections.end(),
                    [&](const Connection &c) { return c.object == connection.object; });
    if (isKnown)
        warnOfSecondConnection();
    const auto at =
        std::upper_bound(_connections.begin(), _connections.end(), connection.priority,
                         [](int priority, const Connection &c) { return priority < c.priority; });
    _connections.insert(at, std::move(connection));
}

} // namespace utils
