// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <ctime>

#include <algorithm>
#include <condition_variable>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

/// Measuring ours against a reference in the same run.
///
///     int main(int argc, char **argv)
///     {
///         bench::RatioReport report;
///         report.compare("rational add", 0.4,
///                        [](benchmark::State &state) { for (auto _ : state) ...; }, // reference
///                        [](benchmark::State &state) { for (auto _ : state) ...; }); // ours
///         return report.run(argc, argv);
///     }
///
/// The table at the end holds the medians of several repetitions, interleaved, in thread CPU time,
/// with a second thread alive: a process with one thread flatters shared pointers.
namespace bench {

/// CPU time of the calling thread in seconds.
inline double threadSeconds()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Times one iteration of a benchmark that was added with `Timing::Manual`, from here to the end
/// of the scope: work outside of it (building the next input) is not counted.
class IterationTimer {
public:
    explicit IterationTimer(benchmark::State &state) : _state(state), _start(threadSeconds()) { }
    IterationTimer(const IterationTimer &) = delete;
    IterationTimer &operator=(const IterationTimer &) = delete;
    ~IterationTimer() { _state.SetIterationTime(threadSeconds() - _start); }

private:
    benchmark::State &_state;
    double _start;
};

/// Keeps a second thread alive, idle.
class IdleThread {
public:
    IdleThread()
        : _thread([this] {
              std::unique_lock<std::mutex> lock(_mutex);
              _wake.wait(lock, [this] { return _done; });
          })
    {
    }
    IdleThread(const IdleThread &) = delete;
    IdleThread &operator=(const IdleThread &) = delete;
    ~IdleThread()
    {
        {
            const std::lock_guard<std::mutex> lock(_mutex);
            _done = true;
        }
        _wake.notify_one();
        _thread.join();
    }

private:
    std::mutex _mutex;
    std::condition_variable _wake;
    bool _done = false;
    std::thread _thread;
};

/// What is measured: the whole loop, or what `IterationTimer` spans.
enum class Timing { Loop, Manual };

class RatioReport {
public:
    using Body = std::function<void(benchmark::State &)>;

    /// Adds a figure: `ours` should take at most `target` times what `reference` takes.
    void compare(const std::string &name, double target, Body reference, Body ours,
                 Timing timing = Timing::Loop)
    {
        add(name + "/reference", std::move(reference), timing);
        add(name + "/ours", std::move(ours), timing);
        _rows.push_back({name, target, 0, 0, nullptr});
    }

    /// Adds a figure that is no time, such as bytes; `measure` runs after the benchmarks and
    /// gives the reference and ours, in this order.
    void compareValues(const std::string &name, double target,
                       std::function<std::pair<double, double>()> measure)
    {
        _rows.push_back({name, target, 0, 0, std::move(measure)});
    }

    /// Runs the benchmarks and prints the table; the result of `main`. Understands the flags of
    /// Google Benchmark (`--benchmark_filter=REGEX`, `--benchmark_min_time=SECONDS`, ...).
    int run(int argc, char **argv)
    {
        std::vector<std::string> texts(argv, argv + argc);
        texts.insert(texts.begin() + 1,
                     {"--benchmark_repetitions=9", "--benchmark_min_time=0.05",
                      "--benchmark_enable_random_interleaving=true"});
        std::vector<char *> arguments;
        for (std::string &text : texts)
            arguments.push_back(text.data());
        int count = static_cast<int>(arguments.size());
        benchmark::Initialize(&count, arguments.data());
        if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
            return 1;
        const IdleThread second;
        Collector collector;
        benchmark::RunSpecifiedBenchmarks(&collector);
        print(collector.medians());
        return 0;
    }

private:
    struct Row {
        std::string name;
        double target;
        double reference;
        double ours;
        std::function<std::pair<double, double>()> measure;
    };

    /// Collects the nanoseconds per iteration of every repetition.
    class Collector : public benchmark::BenchmarkReporter {
    public:
        bool ReportContext(const Context &) override { return true; }
        void ReportRuns(const std::vector<Run> &runs) override
        {
            for (const Run &run : runs) {
                if (run.run_type != Run::RT_Iteration || run.iterations == 0)
                    continue;
                if (run.error_occurred) {
                    std::fprintf(stderr, "%s: %s\n", run.run_name.function_name.c_str(),
                                 run.error_message.c_str());
                    continue;
                }
                const bool manual = !run.run_name.time_type.empty();
                const double seconds =
                    manual ? run.real_accumulated_time : run.cpu_accumulated_time;
                _times[run.run_name.function_name].push_back(seconds * 1e9
                                                             / static_cast<double>(run.iterations));
            }
        }
        std::map<std::string, double> medians()
        {
            std::map<std::string, double> result;
            for (auto &[name, times] : _times) {
                const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
                std::nth_element(times.begin(), middle, times.end());
                result[name] = *middle;
            }
            return result;
        }

    private:
        std::map<std::string, std::vector<double>> _times;
    };

    void add(const std::string &name, Body body, Timing timing)
    {
        auto *const added = benchmark::RegisterBenchmark(
            name.c_str(), [body = std::move(body)](benchmark::State &state) { body(state); });
        if (timing == Timing::Manual)
            added->UseManualTime();
    }

    void print(const std::map<std::string, double> &medians)
    {
        std::printf("%-52s %14s %14s %8s %8s\n", "figure", "reference", "ours", "ratio", "target");
        for (Row &row : _rows) {
            if (row.measure) {
                std::tie(row.reference, row.ours) = row.measure();
            } else {
                const auto reference = medians.find(row.name + "/reference");
                const auto ours = medians.find(row.name + "/ours");
                if (reference == medians.end() || ours == medians.end())
                    continue;
                row.reference = reference->second;
                row.ours = ours->second;
            }
            const double ratio = row.ours / row.reference;
            std::printf("%-52s %11.1f %s %11.1f %s %8.3f %8.3f %s\n", row.name.c_str(),
                        row.reference, row.measure ? "  " : "ns", row.ours,
                        row.measure ? "  " : "ns", ratio, row.target,
                        ratio <= row.target ? "met" : "MISSED");
        }
    }

    std::vector<Row> _rows;
};

} // namespace bench
