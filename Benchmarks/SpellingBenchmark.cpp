// SPDX-License-Identifier: MIT
#include "CountedAllocations.h"
#include "RatioReport.h"

#include <ZarnCore/music/ZarnInterval.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/music/ZarnTone.h>

#include <array>
#include <random>
#include <vector>

namespace {

using zarn::Interval;
using zarn::NoteAccidental;
using zarn::NoteName;
using zarn::PitchClass;
using zarn::Tone;

constexpr std::size_t sampleCount = 256;

/// Numbers below a limit in no order, the same ones for the reference and for ours.
std::vector<std::size_t> numbersBelow(std::size_t limit, unsigned seed)
{
    std::mt19937 random(seed);
    std::vector<std::size_t> result(sampleCount);
    for (std::size_t &number : result)
        number = random() % limit;
    return result;
}

std::vector<PitchClass> someSpellings()
{
    std::vector<PitchClass> result;
    for (const std::size_t number : numbersBelow(35, 1))
        result.emplace_back(static_cast<NoteName::Value>(number / 5),
                            static_cast<NoteAccidental::Value>(number % 5));
    return result;
}

std::vector<Interval> validIntervals()
{
    std::vector<Interval> result;
    for (int degree = 0; degree < 13; ++degree)
        for (int quality = 0; quality < 7; ++quality) {
            const Interval interval(static_cast<Interval::Value>(degree),
                                    static_cast<Interval::Alteration>(quality));
            if (interval.isValid())
                result.push_back(interval);
        }
    return result;
}

std::vector<Interval> someIntervals()
{
    const auto valid = validIntervals();
    std::vector<Interval> result;
    for (const std::size_t number : numbersBelow(valid.size(), 2))
        result.push_back(valid[number]);
    return result;
}

/// The reference: one read of a plain table of bytes at two indexes that lie ready in memory.
void tableAccess(benchmark::State &state)
{
    std::array<std::uint8_t, 35 * 91> table = {};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<std::uint8_t>(i * 7);
    benchmark::DoNotOptimize(table);
    const auto rowNumbers = numbersBelow(35, 1);
    const auto columnNumbers = numbersBelow(91, 2);
    const std::size_t *const rows = rowNumbers.data();
    const std::size_t *const columns = columnNumbers.data();
    for (auto _ : state)
        for (std::size_t i = 0; i < sampleCount; ++i) {
            auto cell = table[rows[i] * 91 + columns[i]];
            benchmark::DoNotOptimize(cell);
        }
}

/// One operation on each of the same spellings and intervals.
template <typename Operation>
bench::RatioReport::Body onValues(Operation operation)
{
    return [operation](benchmark::State &state) {
        const auto manySpellings = someSpellings();
        const auto manyIntervals = someIntervals();
        const PitchClass *const spellings = manySpellings.data();
        const Interval *const intervals = manyIntervals.data();
        for (auto _ : state)
            for (std::size_t i = 0; i < sampleCount; ++i) {
                auto result = operation(spellings[i], intervals[i], i);
                benchmark::DoNotOptimize(result);
            }
    };
}

/// How many look-ups there were, and how many allocations they made.
std::pair<double, double> allocationsOfLookUps()
{
    const auto spellings = someSpellings();
    const auto intervals = someIntervals();
    const unsigned long before = bench::allocationCount;
    for (std::size_t i = 0; i < sampleCount; ++i) {
        auto moved = spellings[i].transposed(intervals[i]).diminished();
        auto back = moved.untransposed(intervals[i] - 1);
        benchmark::DoNotOptimize(back);
        benchmark::DoNotOptimize(back.tone());
        benchmark::DoNotOptimize(&back.interval(spellings[i]));
        benchmark::DoNotOptimize(PitchClass::fromPitch(60, true));
    }
    return {static_cast<double>(6 * sampleCount),
            static_cast<double>(bench::allocationCount - before)};
}

} // namespace

int main(int argc, char **argv)
{
    bench::RatioReport report;
    const auto lookUp = [&report](const char *name, auto operation) {
        report.compare(name, 5, tableAccess, onValues(operation));
    };
    using std::size_t;
    lookUp("transposed", [](const PitchClass &from, const Interval &interval, size_t) {
        return from.transposed(interval);
    });
    lookUp("untransposed", [](const PitchClass &from, const Interval &interval, size_t) {
        return from.untransposed(interval);
    });
    lookUp("augmented",
           [](const PitchClass &from, const Interval &, size_t) { return from.augmented(); });
    lookUp("tone of a spelling",
           [](const PitchClass &from, const Interval &, size_t) { return from.tone(); });
    lookUp("spelling of a MIDI number", [](const PitchClass &, const Interval &, size_t i) {
        return PitchClass::fromPitch(static_cast<int>(i) % 128, true);
    });
    lookUp("semitones of an interval", [](const PitchClass &, const Interval &interval, size_t) {
        return interval.semitones();
    });

    const auto lists = [&report](const char *name, auto reference, auto ours) {
        report.compare(name, 0.3, onValues(reference), onValues(ours));
    };
    lists(
        "intervals between spellings",
        [valid = validIntervals(), spellings = someSpellings()](const PitchClass &from,
                                                                const Interval &, size_t i) {
            std::vector<Interval> result;
            for (const Interval &interval : valid)
                if (from.transposed(interval) == spellings[sampleCount - 1 - i])
                    result.push_back(interval);
            return result;
        },
        [spellings = someSpellings()](const PitchClass &from, const Interval &, size_t i) {
            return &from.interval(spellings[sampleCount - 1 - i]);
        });
    lists(
        "intervals between MIDI numbers",
        [valid = validIntervals()](const PitchClass &, const Interval &, size_t i) {
            std::vector<Interval> result;
            for (const Interval &interval : valid)
                if (interval.value() <= Interval::Value::Octave
                    && (interval.semitones() + 12) % 12 == static_cast<int>(i) % 12)
                    result.push_back(interval);
            return result;
        },
        [](const PitchClass &, const Interval &, size_t i) {
            return &Interval::fromPitches(60, 60 + static_cast<int>(i) % 12);
        });
    lists(
        "enharmonics",
        [](const PitchClass &from, const Interval &, size_t) {
            QSet<PitchClass> result;
            result.insert(from);
            const Tone tone = from.tone();
            for (const bool preferFlat : {false, true})
                result.insert(PitchClass::fromTone(tone, preferFlat));
            return result;
        },
        [](const PitchClass &from, const Interval &, size_t) { return from.enharmonics(); });
    report.compareValues("allocations of all look-ups", 0, allocationsOfLookUps);
    return report.run(argc, argv);
}
