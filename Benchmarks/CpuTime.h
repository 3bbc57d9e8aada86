// SPDX-License-Identifier: MIT
#pragma once

#include <sys/resource.h>

#include <algorithm>
#include <vector>

/// How often what is compared by its CPU time is run.
constexpr int repetitions = 5;

/// What this process (`RUSAGE_SELF`) or the programs that it has run (`RUSAGE_CHILDREN`) took so
/// far, in seconds.
inline double cpuSeconds(int who)
{
    rusage usage{};
    getrusage(who, &usage);
    const auto of = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return of(usage.ru_utime) + of(usage.ru_stime);
}

/// The CPU time of an act, in seconds: the middle one of several runs.
template <class Act>
double median(int who, Act act)
{
    std::vector<double> times;
    for (int i = 0; i < repetitions; ++i) {
        const double before = cpuSeconds(who);
        act();
        times.push_back(cpuSeconds(who) - before);
    }
    std::nth_element(times.begin(), times.begin() + repetitions / 2, times.end());
    return times[repetitions / 2];
}
