// SPDX-License-Identifier: MIT
#include "SignalOracle.h"

#include "Fuzzing.h"

#include <algorithm>

namespace fuzz {

void SignalOracle::silence(int id)
{
    for (auto *list : {&_connections, &_pending}) {
        for (Connection &connection : *list)
            connection.isSilenced = connection.isSilenced || connection.id == id;
    }
}

void SignalOracle::beginEmission(bool isLoose)
{
    _emissions.push_back({0, _isBlocked ? 0 : _connections.size(), isLoose});
}

void SignalOracle::call(int id)
{
    expect(!_emissions.empty(), "nothing is called without an emission");
    Emission &emission = _emissions.back();
    if (emission.isLoose) {
        const bool isLive = std::any_of(_connections.begin(), _connections.end(),
                                        [&](const auto &c) { return c.id == id && !c.isSilenced; })
            || std::any_of(_pending.begin(), _pending.end(),
                           [&](const auto &c) { return c.id == id && !c.isSilenced; });
        expect(isLive, "only what is connected is called");
        return;
    }
    skipSilenced(emission);
    if (emission.next == emission.end)
        breakLaw("nobody is called twice, nor what was not connected when the emission began");
    if (_connections[emission.next].id != id)
        breakLaw("listeners are called by priority, then in the order of their connections",
                 "expected " + std::to_string(_connections[emission.next].id) + ", called "
                     + std::to_string(id));
    ++emission.next;
}

void SignalOracle::endEmission(bool hasThrown)
{
    Emission emission = _emissions.back();
    _emissions.pop_back();
    skipSilenced(emission);
    expect(hasThrown || emission.isLoose || emission.next == emission.end,
           "every listener is called");
}

void SignalOracle::settle()
{
    const auto isOver = [this](const Connection &connection) {
        return connection.isSilenced
            || std::count(_disconnected.begin(), _disconnected.end(), connection.object) > 0;
    };
    _connections.erase(std::remove_if(_connections.begin(), _connections.end(), isOver),
                       _connections.end());
    _disconnected.clear();
    for (const Connection &connection : _pending) {
        if (connection.isSilenced)
            continue;
        const auto behind =
            std::find_if(_connections.begin(), _connections.end(), [&](const Connection &other) {
                return other.priority > connection.priority;
            });
        _connections.insert(behind, connection);
    }
    _pending.clear();
}

bool SignalOracle::isPending(int object) const
{
    return std::any_of(_pending.begin(), _pending.end(),
                       [&](const Connection &c) { return c.object == object; });
}

void SignalOracle::skipSilenced(Emission &emission) const
{
    while (emission.next < emission.end && _connections[emission.next].isSilenced)
        ++emission.next;
}

} // namespace fuzz
