// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/DynamicPlacer.h>

#include <ZarnCore/model/ZarnBeat.h>

#include <algorithm>
#include <iterator>

namespace zarn::io {

namespace {

using Level = NoteDynamic::Value;

struct DynamicRow {
    int velocity;
    Level level;
};

constexpr DynamicRow rows[] = {
    {16, Level::PPP}, {33, Level::PP}, {49, Level::P},   {64, Level::MP},
    {80, Level::MF},  {96, Level::F},  {112, Level::FF}, {126, Level::FFF},
};

/// Onsets for which a level must hold, and the part of all that must have one, in percent.
constexpr std::size_t leastHeld = 4;
constexpr std::size_t mostOnes = 80;

Level levelOf(int velocity)
{
    const auto *const row =
        std::find_if(std::begin(rows), std::end(rows),
                     [&](const DynamicRow &known) { return known.velocity == velocity; });
    return row == std::end(rows) ? Level::None : row->level;
}

} // namespace

void placeDynamics(const std::vector<StaffBuilder::Onset> &onsets)
{
    std::vector<Level> levels;
    levels.reserve(onsets.size());
    for (const auto &onset : onsets)
        levels.push_back(levelOf(onset.velocity));
    const auto without =
        static_cast<std::size_t>(std::count(levels.begin(), levels.end(), Level::None));
    const bool isOne = std::all_of(levels.begin(), levels.end(),
                                   [&](Level level) { return level == levels.front(); });
    if (isOne || (levels.size() - without) * 100 < levels.size() * mostOnes)
        return;
    Level current = Level::None;
    for (std::size_t first = 0; first < levels.size();) {
        std::size_t last = first + 1;
        while (last < levels.size() && levels[last] == levels[first])
            ++last;
        if (levels[first] != Level::None && levels[first] != current && last - first >= leastHeld) {
            onsets[first].beat->setDynamic(levels[first]);
            current = levels[first];
        }
        first = last;
    }
}

} // namespace zarn::io
