// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

namespace zarn {

/// The fields of a tuning, for the files that implement it.
struct GuitarTuning::Data {
    Data();

    /// Takes the highest and the lowest pitch anew; without pitches they are as at the start.
    void setRangeOf(const std::vector<int> &pitches) noexcept;

    std::uint32_t id;
    Instrument instrument = Undefined;
    bool isFlat = false;
    // They meet from outside, so that the first pitch becomes both.
    int highestMidi = minimumMidi;
    int lowestMidi = maximumMidi;
    std::string name;
    int midiOffset = 0;
    Role role = NoRole;
    std::vector<int> midiNumbers;
    bool hasShortDroneString = false;
    std::string label;
    bool isLabelVisible = true;
};

} // namespace zarn
