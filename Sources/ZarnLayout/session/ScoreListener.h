// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/SignalContainer.h>

#include <vector>

namespace zarn {
class Score;
}

namespace zarn::engraving {

class ScoreMarks;

/// Listens to a score and marks what a layout has to read again. Marks are all that it makes:
/// listeners run inside of commands.
class ScoreListener {
public:
    /// `marks` must outlive the listener.
    ScoreListener(Score &score, ScoreMarks &marks);
    ScoreListener(const ScoreListener &) = delete;
    ScoreListener &operator=(const ScoreListener &) = delete;

private:
    template <class Event>
    void listen(Score &score);
    template <class Event>
    void hear(const Event &event);

    ScoreMarks &_marks;
    std::vector<utils::ScopedConnection> _connections;
};

} // namespace zarn::engraving
