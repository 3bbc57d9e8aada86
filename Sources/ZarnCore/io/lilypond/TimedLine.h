// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/rational.h>

#include <map>
#include <string>
#include <utility>

namespace zarn::lilypond {

struct Frame;

/// Commands at moments of a score, with skips between them: meters and tempos, clefs and pedals.
class TimedLine {
public:
    explicit TimedLine(const Frame &frame) : _frame(frame) { }

    /// A command in front of what begins at a position in quarters, such as "\clef bass".
    void add(unsigned bar, const utils::rational &position, const std::string &command);

    /// What hangs on the time from there on, such as "\sustainOn".
    void attach(unsigned bar, const utils::rational &position, const std::string &event);

    /// A command behind all that the bar holds.
    void addAtEnd(unsigned bar, const std::string &command);

    /// Music in place of a skip, from there on until the next entry, the skip's length being put in
    /// place of "%1".
    void put(unsigned bar, const utils::rational &position, const std::string &music);

    /// A bar a line.
    std::string toText() const;

private:
    struct Entry {
        std::string commands;
        std::string events;
        std::string music;
    };

    /// Positions at the end of a bar count to the next one.
    Entry &entry(unsigned bar, utils::rational position);

    const Frame &_frame;
    std::map<std::pair<unsigned, utils::rational>, Entry> _entries;
    std::map<unsigned, std::string> _ends;
};

} // namespace zarn::lilypond
