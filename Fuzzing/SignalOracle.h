// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

namespace fuzz {

/// What a signal promises, in the plainest words: lists of numbers, nothing that dies. It is told
/// of every request before the signal is, and of every call that arrives.
class SignalOracle {
public:
    struct Connection {
        int id;
        int object;
        int priority;
        bool isSilenced = false;
    };

    void connect(const Connection &connection) { _pending.push_back(connection); }
    void disconnect(int object) { _disconnected.push_back(object); }
    void silence(int id);
    void setBlocked(bool isBlocked) { _isBlocked = isBlocked; }

    /// Emissions stand in each other. One that starts while requests are being applied may meet
    /// any listener that lives, so its order is not looked at.
    void beginEmission(bool isLoose);
    /// Breaks the law when it is not this connection's turn.
    void call(int id);
    void endEmission(bool hasThrown);
    std::size_t depth() const noexcept { return _emissions.size(); }

    /// Applies the requests, as the signal does when nothing is going on any more.
    void settle();

    std::size_t connectionCount() const noexcept { return _connections.size(); }
    bool isPending(int object) const;

private:
    struct Emission {
        std::size_t next;
        std::size_t end;
        bool isLoose;
    };

    void skipSilenced(Emission &emission) const;

    std::vector<Connection> _connections;
    std::vector<Connection> _pending;
    std::vector<int> _disconnected;
    std::vector<Emission> _emissions;
    bool _isBlocked = false;
};

} // namespace fuzz
