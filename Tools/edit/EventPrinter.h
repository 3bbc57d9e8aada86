// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/SignalContainer.h>

#include <iosfwd>
#include <string>
#include <vector>

namespace zarn {

class Score;

namespace tool {

/// Prints every event of a score as it is delivered, one line each, until it is destroyed.
class EventPrinter {
public:
    EventPrinter(Score &score, std::ostream &out);
    ~EventPrinter();
    EventPrinter(const EventPrinter &) = delete;
    EventPrinter &operator=(const EventPrinter &) = delete;

private:
    void print(const char *typeName, const std::string &words);

    std::ostream &_out;
    std::vector<utils::ScopedConnection> _connections;
};

} // namespace tool
} // namespace zarn
