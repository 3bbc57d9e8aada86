// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <cstdint>
#include <string>
#include <vector>

namespace zarn {

/// The fields of a tuning.
struct TuningData {
    /// With the next id.
    TuningData();

    /// Takes the highest and the lowest pitch anew; without pitches they are as at the start.
    void setRangeOf(const std::vector<int> &pitches) noexcept;
    void widenRange(int midi) noexcept;

    /// A pitch that a tuning may be given.
    static int clampedPitch(std::int64_t midi) noexcept;

    std::uint32_t id;
    GuitarTuning::Instrument instrument = GuitarTuning::Undefined;
    bool isFlat = false;
    // They meet from outside, so that the first pitch becomes both.
    int highestMidi = GuitarTuning::minimumMidi;
    int lowestMidi = GuitarTuning::maximumMidi;
    std::string name;
    int midiOffset = 0;
    GuitarTuning::Role role = GuitarTuning::NoRole;
    std::vector<int> midiNumbers;
    bool hasShortDroneString = false;
    std::string label;
    bool isLabelVisible = true;
};

} // namespace zarn
