// SPDX-License-Identifier: MIT
// What it costs to finger a passage: per note, in long pieces, in memory, and for one beat.
#include "RatioReport.h"

#include <ZarnCore/fingering/ZarnFingeringSolver.h>
#include <ZarnCore/model/ZarnStaff.h>

#include <sys/resource.h>

#include <algorithm>
#include <random>
#include <utility>
#include <vector>

namespace {

using namespace zarn;
using namespace zarn::fingering;

/// Guitar music of two voices: a bass that lasts, melody, broken and struck chords.
Passage guitarMusic(std::size_t noteCount)
{
    Staff staff;
    staff.setTuning({40, 45, 50, 55, 59, 64});
    staff.setFretCount(19);
    Passage passage(staff);
    std::mt19937 random(1);
    const auto below = [&random](int count) {
        return static_cast<int>(random() % static_cast<unsigned>(count));
    };
    constexpr int steps[] = {0, 2, 4, 5, 7, 9, 11};
    const auto degree = [&steps](int at) { return 48 + 12 * (at / 7) + steps[at % 7]; };
    int at = 9;
    for (double onset = 0; passage.notes.size() < noteCount; onset += 0.5) {
        at = std::clamp(at + below(5) - 2, 3, 17);
        passage.addEvent(onset);
        passage.addNote({degree(at), onset + 0.5});
        if (below(6) == 0)
            passage.addNote({degree(at - 2), onset + 0.5});
        if (below(4) == 0)
            passage.addNote({40 + steps[below(6)], onset + 2});
    }
    return passage;
}

double secondsFor(const Passage &passage)
{
    const double start = bench::threadSeconds();
    benchmark::DoNotOptimize(FingeringSolver(passage).solve());
    return bench::threadSeconds() - start;
}

double peakMegabytes()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

} // namespace

int main(int argc, char **argv)
{
    bench::RatioReport report;
    const Passage longPassage = guitarMusic(100000);
    report.compareValues("memory of 100,000 notes, MB / 64 MB", 1, [&longPassage] {
        const double before = peakMegabytes();
        secondsFor(longPassage);
        return std::make_pair(64., peakMegabytes() - before);
    });
    report.compareValues("100,000 notes, seconds / 3 s", 1,
                         [&longPassage] { return std::make_pair(3., secondsFor(longPassage)); });
    report.compareValues("1,000 notes, ms / 30 ms", 1, [] {
        const Passage passage = guitarMusic(1000);
        std::vector<double> times;
        for (int i = 0; i < 9; ++i)
            times.push_back(secondsFor(passage) * 1e3);
        std::nth_element(times.begin(), times.begin() + 4, times.end());
        return std::make_pair(30., times[4]);
    });
    report.compareValues("100,000 notes / 10,000 notes", 11, [&longPassage] {
        const double tenth = secondsFor(guitarMusic(10000));
        return std::make_pair(tenth, secondsFor(longPassage));
    });
    report.compareValues("three ways for a beat, ms / 1 ms", 1, [] {
        const Passage passage = guitarMusic(1000);
        FingeringSolver solver(passage);
        constexpr int beats = 200;
        const double start = bench::threadSeconds();
        for (std::size_t event = 0; event < beats; ++event)
            benchmark::DoNotOptimize(solver.alternatives(event, 3));
        return std::make_pair(1., (bench::threadSeconds() - start) * 1e3 / beats);
    });
    return report.run(argc, argv);
}
