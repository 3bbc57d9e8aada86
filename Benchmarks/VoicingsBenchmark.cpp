// SPDX-License-Identifier: MIT
// Finding the ways to play a chord, with fingers and in order, against a plain walk through all
// frets that the hand spans, which only asks for the right tones. The budget of a chord is shown
// beside it.
#include "RatioReport.h"

#include <ZarnCore/chords/ZarnVoicingFinder.h>

#include <array>
#include <cstddef>
#include <vector>

namespace {

using namespace zarn;
using namespace zarn::chord;

constexpr int lastFret = 15;
constexpr int span = 4;

/// Sets of tones of usual chords, from C: triads, sevenths, a ninth and a thirteenth.
constexpr std::array<unsigned, 8> kinds = {0x091, 0x089, 0x491, 0x489, 0x891, 0x495, 0x699, 0x6b5};

std::vector<ChordTones> usualChords()
{
    constexpr unsigned fifth = 0x080;
    std::vector<ChordTones> chords;
    for (int root = 0; root < 12; ++root)
        for (const unsigned kind : kinds) {
            ChordTones chord;
            chord.tones = ToneSet(kind);
            if (chord.tones.size() > 3)
                chord.omissible = ToneSet(fifth);
            chords.push_back(chord.transposed(root));
        }
    return chords;
}

/// How often the strings from one on can sound the tones, and all of them.
std::size_t plainWalk(const std::vector<Course> &courses, std::size_t course, int lowest,
                      const ChordTones &chord, ToneSet tones)
{
    if (course == courses.size())
        return tones.contains(chord.tones - chord.omissible) ? 1 : 0;
    std::size_t count = plainWalk(courses, course + 1, lowest, chord, tones);
    for (int fret = lowest - 1; fret < lowest + span; ++fret) {
        const Tone tone(courses[course].pitchAt(fret < lowest ? 0 : fret));
        if (!chord.tones.contains(tone))
            continue;
        ToneSet more = tones;
        more.insert(tone);
        count += plainWalk(courses, course + 1, lowest, chord, more);
    }
    return count;
}

void plain(benchmark::State &state, const GuitarTuning &tuning)
{
    const Fretboard fretboard(tuning);
    const auto chords = usualChords();
    std::size_t next = 0;
    for (auto _ : state) {
        std::size_t count = 0;
        for (int lowest = 1; lowest <= lastFret; ++lowest)
            count += plainWalk(fretboard.courses(), 0, lowest, chords[next], ToneSet());
        benchmark::DoNotOptimize(count);
        next = (next + 1) % chords.size();
    }
}

void ours(benchmark::State &state, const GuitarTuning &tuning)
{
    const VoicingFinder finder(Fretboard(tuning), HandModel(handFor(tuning)));
    const auto chords = usualChords();
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(finder.find(chords[next]));
        next = (next + 1) % chords.size();
    }
}

/// The slowest of the chords, in milliseconds.
double slowest(const GuitarTuning &tuning)
{
    const VoicingFinder finder(Fretboard(tuning), HandModel(handFor(tuning)));
    double most = 0;
    for (const ChordTones &chord : usualChords()) {
        const double start = bench::threadSeconds();
        benchmark::DoNotOptimize(finder.find(chord));
        most = std::max(most, (bench::threadSeconds() - start) * 1000);
    }
    return most;
}

} // namespace

int main(int argc, char **argv)
{
    const GuitarTuning guitar(GuitarTuning::Guitar, {40, 45, 50, 55, 59, 64});
    const GuitarTuning ukulele(GuitarTuning::Ukulele, {67, 60, 64, 69});
    const GuitarTuning nine(GuitarTuning::Guitar, {28, 33, 35, 40, 45, 50, 55, 59, 64});
    bench::RatioReport report;
    for (const auto &[name, tuning] :
         {std::pair("guitar", &guitar), std::pair("ukulele", &ukulele)}) {
        const GuitarTuning *const strings = tuning;
        report.compare(
            std::string(name) + ", a chord", 3,
            [strings](benchmark::State &state) { plain(state, *strings); },
            [strings](benchmark::State &state) { ours(state, *strings); });
    }
    report.compareValues("guitar, slowest chord of 3 ms", 1,
                         [&] { return std::pair(3.0, slowest(guitar)); });
    report.compareValues("nine strings, slowest chord of 20 ms", 1,
                         [&] { return std::pair(20.0, slowest(nine)); });
    return report.run(argc, argv);
}
