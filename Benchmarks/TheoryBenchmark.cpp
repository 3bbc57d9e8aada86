// SPDX-License-Identifier: MIT
#include "RatioReport.h"

#include <ZarnCore/music/ZarnRhythmValue.h>
#include <ZarnCore/utils/rational.h>

#include <boost/rational.hpp>

#include <algorithm>
#include <vector>

namespace {

using utils::rational;
using BoostRational = boost::rational<std::int64_t>;

/// The lengths of a bar's beats: plain and dotted notes down to 64ths, with runs of triplets,
/// quintuplets and septuplets.
template <typename Fraction>
std::vector<Fraction> barLengths()
{
    std::vector<Fraction> lengths = {
        {1, 1},  {1, 2},  {1, 2}, {3, 4}, {1, 4},  {1, 3},  {1, 3},  {1, 3},  {1, 2},  {1, 4},
        {1, 4},  {1, 8},  {1, 8}, {3, 8}, {1, 8},  {1, 4},  {2, 5},  {2, 5},  {2, 5},  {2, 5},
        {2, 5},  {3, 2},  {1, 2}, {1, 1}, {1, 6},  {1, 6},  {1, 6},  {1, 2},  {1, 16}, {1, 16},
        {1, 16}, {1, 16}, {3, 4}, {2, 7}, {2, 7},  {2, 7},  {2, 7},  {2, 7},  {2, 7},  {2, 7},
        {1, 1},  {2, 3},  {2, 3}, {2, 3}, {7, 4},  {1, 4},  {1, 64}, {3, 64}, {1, 32}, {1, 32},
        {3, 32}, {1, 16}, {1, 4}, {1, 2}, {1, 12}, {1, 12}, {1, 12}, {1, 4},  {1, 2},  {1, 2},
        {1, 1},  {2, 1},  {4, 1}, {3, 1}};
    return lengths;
}

/// The offsets of the same beats in their bars of four quarters.
template <typename Fraction>
std::vector<Fraction> barOffsets()
{
    std::vector<Fraction> offsets;
    Fraction offset(0);
    for (const Fraction &length : barLengths<Fraction>()) {
        offsets.push_back(offset);
        offset += length;
        if (offset >= Fraction(4))
            offset -= Fraction(4);
    }
    return offsets;
}

template <typename Fraction, typename Operation>
bench::RatioReport::Body pairwise(Operation operation)
{
    return [operation](benchmark::State &state) {
        const auto offsets = barOffsets<Fraction>();
        const auto lengths = barLengths<Fraction>();
        const Fraction *const end = lengths.data() + lengths.size();
        for (auto _ : state) {
            const Fraction *offset = offsets.data();
            for (const Fraction *length = lengths.data(); length != end; ++length, ++offset) {
                auto result = operation(*offset, *length);
                benchmark::DoNotOptimize(result);
            }
        }
    };
}

template <typename Fraction>
void runningOffsets(benchmark::State &state)
{
    const auto lengths = barLengths<Fraction>();
    for (auto _ : state) {
        Fraction offset(0);
        for (const Fraction &length : lengths) {
            offset += length;
            benchmark::DoNotOptimize(offset);
            if (offset >= Fraction(4))
                offset = Fraction(0);
        }
    }
}

/// Rhythms as beats carry them: plain, dotted, in tuplets and nested tuplets.
std::vector<zarn::RhythmValue> barRhythms()
{
    using zarn::RhythmValue;
    std::vector<RhythmValue> rhythms;
    for (int i = 0; i < 64; ++i) {
        RhythmValue rhythm(static_cast<RhythmValue::NoteValue>(2 + i % 7), i % 4 == 1 ? 1 : 0);
        if (i % 4 == 2)
            rhythm.setPrimaryTupletRatio({i % 8 == 2 ? 3 : 5, i % 8 == 2 ? 2 : 4});
        if (i % 16 == 10)
            rhythm.setSecondaryTupletRatio({3, 2});
        rhythms.push_back(rhythm);
    }
    return rhythms;
}

/// The definition step by step: the note value, plus a half for the first dot, a quarter for the
/// second, an eighth for the third, times the ratios of the tuplets.
BoostRational lengthStepByStep(const zarn::RhythmValue &rhythm)
{
    const auto unit = zarn::RhythmValue::noteValueToTimeUnit(rhythm.getNoteValue());
    const BoostRational base(unit.numerator(), unit.denominator());
    BoostRational length = base;
    for (unsigned dot = 1; dot <= std::min(rhythm.getAugmentationDot(), 3u); ++dot)
        length += base / (std::int64_t(1) << dot);
    if (rhythm.hasPrimaryTuplet()) {
        const auto primary = rhythm.getPrimaryTupletRatio();
        length *= BoostRational(primary.second, primary.first);
        const auto secondary = rhythm.getSecondaryTupletRatio();
        if (secondary.first != 0 && secondary.second != 0)
            length *= BoostRational(secondary.second, secondary.first);
    }
    return length;
}

void rhythmLengthsStepByStep(benchmark::State &state)
{
    const auto rhythms = barRhythms();
    for (auto _ : state)
        for (const zarn::RhythmValue &rhythm : rhythms) {
            auto length = lengthStepByStep(rhythm);
            benchmark::DoNotOptimize(length);
        }
}

/// Ours, computed anew each time: setting the dots forgets the length.
void rhythmLengths(benchmark::State &state)
{
    auto rhythms = barRhythms();
    for (auto _ : state)
        for (zarn::RhythmValue &rhythm : rhythms) {
            rhythm.setAugmentationDot(rhythm.getAugmentationDot());
            benchmark::DoNotOptimize(rhythm.getLength());
        }
}

} // namespace

int main(int argc, char **argv)
{
    bench::RatioReport report;
    const auto add = [](const auto &left, const auto &right) { return left + right; };
    report.compare("rational: add", 0.4, pairwise<BoostRational>(add), pairwise<rational>(add));
    const auto multiply = [](const auto &left, const auto &right) { return left * right; };
    report.compare("rational: multiply", 0.45, pairwise<BoostRational>(multiply),
                   pairwise<rational>(multiply));
    const auto compare = [](const auto &left, const auto &right) { return left < right; };
    report.compare("rational: compare", 0.25, pairwise<BoostRational>(compare),
                   pairwise<rational>(compare));
    report.compare("rational: running offsets of a bar", 0.45, runningOffsets<BoostRational>,
                   runningOffsets<rational>);
    report.compare("rhythm value: length", 0.3, rhythmLengthsStepByStep, rhythmLengths);
    return report.run(argc, argv);
}
