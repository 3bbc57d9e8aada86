// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace zarn::io {

class ImportReport;

/// What is odd in a MIDI file: a broken file has the same fault thousands of times, so that each
/// kind is told once, with its first place and how often it was met.
class MidiOddities {
public:
    static constexpr int NoTrack = -1;
    static constexpr std::size_t NoByte = static_cast<std::size_t>(-1);

    /// The text is what the fault is known by; `detail` is told of the first one alone.
    void add(const std::string &text, int track = NoTrack, std::size_t byte = NoByte,
             const std::string &detail = {});

    /// Those of another, behind what was met here.
    void add(const MidiOddities &others);

    /// In the order in which they were met.
    void tell(ImportReport &report) const;

private:
    struct Oddity {
        std::string text;
        std::string detail;
        int track = NoTrack;
        std::size_t byte = NoByte;
        std::size_t count = 0;
    };

    std::map<std::string, std::size_t> _places;
    std::vector<Oddity> _all;
};

} // namespace zarn::io
