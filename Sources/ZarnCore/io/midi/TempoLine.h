// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/PlayedNote.h>

#include <vector>

namespace zarn::io {

/// A tempo that a file asks for.
struct TempoChange {
    MidiTime time = 0;
    double quarterSeconds = 0.5;
};

/// How long quarters last. Asked for times that do not go back, it answers each in constant time.
class TempoLine {
public:
    /// In the order of their times.
    explicit TempoLine(const std::vector<TempoChange> &changes) : _changes(changes) { }

    double quarterSecondsAt(MidiTime time)
    {
        while (_next < _changes.size() && _changes[_next].time <= time)
            _quarterSeconds = _changes[_next++].quarterSeconds;
        return _quarterSeconds;
    }

private:
    const std::vector<TempoChange> &_changes;
    std::size_t _next = 0;
    double _quarterSeconds = 0.5;
};

} // namespace zarn::io
