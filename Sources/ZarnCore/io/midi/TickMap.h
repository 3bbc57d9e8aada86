// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/playback/ZarnPlaybackPlan.h>

#include <cstdint>

namespace zarn::io {

/// From times of playing to ticks of a file, each rounded by itself. What sounds in front of the
/// first bar makes room for itself in whole quarters.
class TickMap {
public:
    TickMap(const playback::PlaybackPlan &plan, int ticksPerQuarter)
        : _lead((-plan.start()).ceil()), _ticks(ticksPerQuarter)
    {
    }

    std::uint64_t tickOf(const utils::rational &time) const
    {
        const std::int64_t tick = ((time + _lead) * _ticks).round();
        return tick > 0 ? static_cast<std::uint64_t>(tick) : 0;
    }

    /// The time of a tick in quarters of playing.
    double quartersOf(std::uint64_t tick) const
    {
        return static_cast<double>(tick) / _ticks - static_cast<double>(_lead);
    }

    /// Quarters in front of the first bar.
    std::int64_t lead() const noexcept { return _lead; }
    int ticksPerQuarter() const noexcept { return _ticks; }

private:
    std::int64_t _lead;
    int _ticks;
};

} // namespace zarn::io
