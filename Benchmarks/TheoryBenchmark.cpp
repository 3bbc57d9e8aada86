// SPDX-License-Identifier: MIT
#include "RatioReport.h"

#include <ZarnCore/utils/rational.h>

#include <boost/rational.hpp>

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
        for (auto _ : state)
            for (std::size_t i = 0; i < lengths.size(); ++i) {
                auto result = operation(offsets[i], lengths[i]);
                benchmark::DoNotOptimize(result);
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
    return report.run(argc, argv);
}
