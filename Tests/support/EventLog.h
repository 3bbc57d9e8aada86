// SPDX-License-Identifier: MIT
#pragma once

#include "EventText.h"

#include <ZarnCore/score/ZarnScore.h>
#include <ZarnCore/utils/SignalContainer.h>

#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

/// Writes down the events of a score as they come, and throws at one of them when told to. The
/// events of the command stack itself and those of the cursor are left out.
class EventLog {
public:
    explicit EventLog(zarn::Score &score)
    {
        zarn::evt::forEachEvent(zarn::evt::eventTable, [this, &score](const auto &row) {
            using E = typename std::decay_t<decltype(row)>::Event;
            if (row.number > zarn::evt::CommandWillRedo::TypeNumber
                && !std::is_same_v<E, zarn::evt::ScoreCursorMoved>)
                _connections.push_back(
                    score.connectScoped<E>(this, [this](const E &event) { note(event); }));
        });
    }
    EventLog(const EventLog &) = delete;
    EventLog &operator=(const EventLog &) = delete;

    /// The events since the last call, as `EventText` has them, with a space behind each.
    std::string take()
    {
        _count = 0;
        return std::exchange(_events, std::string());
    }

    /// How many came since the last call of `take`.
    int count() const noexcept { return _count; }

    /// Throws once, when the event of this number (counted from 1) comes; 0 for never.
    void throwAt(int number) { _throwIn = number; }

private:
    template <class E>
    void note(const E &event)
    {
        ++_count;
        _events += EventText::of(event) + ' ';
        if (_throwIn > 0 && --_throwIn == 0)
            throw std::runtime_error("a listener fails");
    }

    std::vector<utils::ScopedConnection> _connections;
    std::string _events;
    int _count = 0;
    int _throwIn = 0;
};
