// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/SignalContainer.h>

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace zarn {

class Score;

namespace tool {

enum class EventDetail : std::uint8_t {
    None,
    Brief, ///< what a step changed, in one line, when it is done
    All,   ///< every event as it is delivered, a line each
};

/// Prints the events of a score until it is destroyed.
class EventPrinter {
public:
    EventPrinter(Score &score, std::ostream &out, EventDetail detail);
    ~EventPrinter();
    EventPrinter(const EventPrinter &) = delete;
    EventPrinter &operator=(const EventPrinter &) = delete;

private:
    /// One by one, or collected until the step is done.
    void print(const char *typeName, const std::string &words);
    void collect(const char *typeName, const std::string &words);

    std::ostream &_out;
    EventDetail _detail;
    std::vector<std::string> _collected; ///< of the step that is running
    std::vector<utils::ScopedConnection> _connections;
};

} // namespace tool
} // namespace zarn
