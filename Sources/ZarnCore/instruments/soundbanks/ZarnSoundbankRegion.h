// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <rapidjson/fwd.h>

#include <cstdint>
#include <optional>
#include <string>

namespace zarn {

/// A range of whole numbers, both ends belong to it.
struct RegionRange {
    int first = 0;
    int last = 0;

    bool contains(int number) const noexcept { return number >= first && number <= last; }

    friend bool operator==(const RegionRange &a, const RegionRange &b) noexcept
    {
        return a.first == b.first && a.last == b.last;
    }
};

/// Which notes a sample of a bank plays, and how. All regions that fit a note sound together, but
/// those of one round-robin group, which take turns.
struct ZARNCORE_EXPORT SoundbankRegion {
    /// The frames that are played again and again while a note is held.
    struct Loop {
        std::int64_t start = 0; ///< first frame, counted from 0
        std::int64_t end = 0;   ///< the frame behind the last one
    };

    std::string sample;             ///< path in the bank
    RegionRange keys{0, 127};       ///< MIDI keys, 60 is middle C
    RegionRange velocities{1, 127}; ///< MIDI velocities
    int rootKey = 60;               ///< the key that plays the sample as it was recorded
    std::optional<Loop> loop;
    double tune = 0;        ///< cents that the sample is to be raised by, -2400 to 2400
    double gain = 0;        ///< decibels, -96 to 24
    double pan = 0;         ///< -1 left, 1 right
    double release = 0.05;  ///< seconds that a note needs to fade out after its end, 0 to 60
    bool isOneShot = false; ///< plays to the end of the sample, however short the note is
    int roundRobin = 0;     ///< number of the group that takes turns; 0 for none
    int chokeGroup = 0;     ///< notes of the same group end each other; 0 for none

    bool fits(int key, int velocity) const noexcept
    {
        return keys.contains(key) && velocities.contains(velocity);
    }

    /// Reads an object; Documents/catalogues.md has its members. Raises `CoreException` with the
    /// place of what is wrong.
    static SoundbankRegion parse(const rapidjson::Value &value);
};

} // namespace zarn
