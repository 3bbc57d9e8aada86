// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/tunings/ReferenceTunings.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace zarn {
namespace {

struct ReferenceTuning {
    std::size_t stringCount;
    std::array<int, 8> pitches;
};

/// The usual tunings of guitars and basses. No two of one length have the same intervals.
constexpr std::array<ReferenceTuning, 10> referenceTunings{{
    {8, {30, 35, 40, 45, 50, 55, 59, 64}},
    {7, {33, 38, 45, 50, 55, 59, 64}},
    {7, {35, 40, 45, 50, 55, 59, 64}},
    {6, {38, 45, 50, 55, 59, 64}},
    {6, {40, 45, 50, 55, 59, 64}},
    {7, {18, 23, 28, 33, 38, 43, 48}},
    {6, {23, 28, 33, 38, 43, 48}},
    {5, {23, 28, 33, 38, 43}},
    {4, {26, 33, 38, 43}},
    {4, {28, 33, 38, 43}},
}};

} // namespace

int offsetFromReferenceTuning(const std::vector<int> &pitches) noexcept
{
    for (const auto &reference : referenceTunings) {
        if (reference.stringCount != pitches.size())
            continue;
        const auto offset = std::int64_t{reference.pitches[0]} - pitches[0];
        if (std::equal(pitches.begin(), pitches.end(), reference.pitches.begin(),
                       [offset](int pitch, int usual) { return pitch + offset == usual; }))
            return static_cast<int>(offset);
    }
    return 0;
}

} // namespace zarn
