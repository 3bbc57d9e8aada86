// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <cstdint>
#include <memory>

namespace zarn {

/// Steps from beat to beat along a line: the voices of one number in all bars of a staff. It only
/// looks; the staff must outlive it and keep its beats.
///
/// A place that is no beat stands between beats: -1 in front of the first of its bar, a number past
/// the last behind that. Whoever steps off the line stays off.
class VoiceLine {
public:
    enum class Direction { Next, Previous };

    /// What to do at a bar whose voice has no beats.
    enum class Gaps { Stop, Skip };

    explicit VoiceLine(const ScoreModelIndex &place) noexcept;

    /// Goes a number of beats on, from the place or from the beat it stands at; answers whether
    /// there is a beat.
    bool step(Direction direction, Gaps gaps, unsigned count = 1) noexcept;

    /// Null when it does not stand at a beat.
    const std::shared_ptr<Beat> *beat() const noexcept;

    /// For one that stands at a beat.
    const Bar &bar() const noexcept { return *(*_bars)[static_cast<std::size_t>(_bar)]; }
    int barIndex() const noexcept { return static_cast<int>(_bar); }
    int beatIndex() const noexcept { return static_cast<int>(_beat); }

private:
    const Voice *voice() const noexcept;
    std::int64_t beatCount() const noexcept;
    bool leave() noexcept;

    const Staff::Bars *_bars = nullptr;
    std::int64_t _bar;
    std::int64_t _beat;
    unsigned _voice;
};

} // namespace zarn
