// SPDX-License-Identifier: MIT
#include <ZarnCore/utils/SignalBase.h>

#include <algorithm>
#include <exception>
#include <iostream>
#include <utility>

namespace utils {

/// Marks an emission, or the changes after one, and undoes the mark on every way out.
class SignalBase::Emission {
public:
    Emission(SignalBase &signal, const void *sender) noexcept
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
    SignalBase &_signal;
    const void *_outerSender;
};

SignalBase::ErasedSlot::~ErasedSlot() = default;

SignalBase::~SignalBase()
{
    close();
}

/// Requests of the callables that die have the stores to go to, and nobody to take them up.
void SignalBase::close() noexcept
{
    _isClosed = true;
    ++_depth;
    destroyFrom(0, _connections);
    destroyFrom(0, _pendingConnections);
}

void SignalBase::disconnect(const void *object)
{
    _pendingDisconnections.push_back(object);
    _hasRequests = true;
    if (_depth == 0)
        Emission(*this, nullptr);
}

void SignalBase::add(const void *object, std::unique_ptr<ErasedSlot> slot, int priority)
{
    request(object, std::move(slot), priority, nullptr);
}

ScopedConnection SignalBase::addScoped(const void *object, std::unique_ptr<ErasedSlot> slot,
                                       int priority)
{
    auto scope = std::make_shared<Scope>(this);
    request(object, std::move(slot), priority, scope);
    return ScopedConnection(std::move(scope));
}

void SignalBase::request(const void *object, std::unique_ptr<ErasedSlot> slot, int priority,
                         std::shared_ptr<Scope> scope)
{
    Connection connection;
    connection.slot = std::move(slot);
    connection.object = object;
    connection.tie = Tie(std::move(scope));
    connection.priority = priority;
    if (_isClosed)
        return;
    // Room is made here, where a failure can still be raised; settling needs none.
    const std::size_t needed = _connections.size() + _pendingConnections.size() + 1;
    if (needed > _connections.capacity())
        _connections.reserve(std::max(needed, 2 * _connections.capacity()));
    _pendingConnections.push_back(std::move(connection));
    _hasRequests = true;
    if (_depth == 0)
        Emission(*this, nullptr);
}

void SignalBase::emitEvent(const void *sender, const void *event)
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
            _deliver(*connection.slot, event);
        } catch (...) {
            if (!failure)
                failure = std::current_exception();
        }
    }
    if (failure)
        std::rethrow_exception(failure);
}

void SignalBase::silence(const Scope &scope) noexcept
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
void SignalBase::settle() noexcept
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
void SignalBase::sweep() noexcept
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
void SignalBase::destroyFrom(std::size_t first, std::vector<Connection> &store) noexcept
{
    while (store.size() > first) {
        const Connection dead = std::move(store.back());
        store.pop_back();
    }
}

void SignalBase::insert(Connection &&connection) noexcept
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
