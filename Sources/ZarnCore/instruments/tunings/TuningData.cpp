// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/tunings/TuningData.h>

#include <algorithm>
#include <atomic>

namespace zarn {

TuningData::TuningData()
{
    static std::atomic<std::uint32_t> nextId{0};
    id = nextId++;
}

void TuningData::setRangeOf(const std::vector<int> &pitches) noexcept
{
    const auto range = std::minmax_element(pitches.begin(), pitches.end());
    lowestMidi = pitches.empty() ? GuitarTuning::maximumMidi : *range.first;
    highestMidi = pitches.empty() ? GuitarTuning::minimumMidi : *range.second;
}

void TuningData::widenRange(int midi) noexcept
{
    lowestMidi = std::min(lowestMidi, midi);
    highestMidi = std::max(highestMidi, midi);
}

int TuningData::clampedPitch(std::int64_t midi) noexcept
{
    return static_cast<int>(
        std::clamp<std::int64_t>(midi, GuitarTuning::minimumMidi, GuitarTuning::maximumMidi));
}

} // namespace zarn
