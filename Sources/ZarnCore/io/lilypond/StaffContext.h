// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>
#include <vector>

namespace zarn {

class Staff;
class Track;

namespace io {
class ExportReport;
}

namespace lilypond {

class DrumTable;
struct Frame;

/// What the writers of one staff share.
struct StaffContext {
    const Track &track;
    const Staff &staff;
    const Frame &frame;

    /// Semitones from the written pitches of the score to those of the file, whole octaves:
    /// fretted staves are written as they sound, under a clef that says so.
    int shift = 0;

    /// MIDI keys of the open strings as the file enters them, under their capos; the lowest string
    /// first.
    std::vector<int> openStrings;

    /// The same for the tablature: octaves lower where a note lies below the string that it names.
    std::vector<int> tablatureStrings;

    /// Names of the drums of an unpitched staff; null on others.
    DrumTable *drums = nullptr;

    /// Dynamics in use that the language lacks.
    std::set<std::string> &dynamics;

    io::ExportReport &report;
};

} // namespace lilypond
} // namespace zarn
