// SPDX-License-Identifier: MIT
// Making a score of a MIDI file against a bare parse of its bytes, which keeps an event list and
// nothing else, and against one that also finds the end of each note, as all must do who want its
// notes; and how the time grows with the notes. An import has several threads at work where the
// machine has several processors: what a user waits for is measured by the clock, and the CPU time
// of all threads beside it.
#include "RatioReport.h"

#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMidiImporter.h>
#include <ZarnCore/io/midi/ZarnMidiFile.h>
#include <ZarnCore/io/midi/ZarnMidiFileReader.h>
#include <ZarnCore/io/midi/ZarnMidiFileWriter.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <filesystem/RAMFileSystem.h>

#include <malloc.h>

#include <ctime>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int trackCount = 16;
constexpr int notesPerBar = 8;

/// Eighths, with a chord of three on each first beat and triplets in every fourth bar.
std::string song(int notes)
{
    zarn::io::MidiFile file;
    file.tracks.resize(trackCount);
    for (int number = 0; number < trackCount; ++number) {
        auto &track = file.tracks[static_cast<std::size_t>(number)];
        const int channel = number == 9 ? 0 : number;
        track.addProgram(0, channel, 48 + number);
        std::uint64_t bar = 0;
        for (int count = 0; count < notes / trackCount; count += notesPerBar, bar += 1920) {
            const auto add = [&](std::uint64_t at, std::uint64_t length, int step) {
                const int key = 48 + (number * 3 + count / notesPerBar * 2 + step * 5) % 30;
                track.addNoteOn(bar + at, channel, key, 80);
                track.addNoteOff(bar + at + length - 1, channel, key);
            };
            const bool isTriplets = count / notesPerBar % 4 == 3;
            for (int third = 0; third < 3; ++third)
                add(isTriplets ? static_cast<std::uint64_t>(third) * 160 : 0,
                    isTriplets ? 160 : 480, third * 2);
            for (int eighth = 2; eighth < 7; ++eighth)
                add(static_cast<std::uint64_t>(eighth) * 240, 240, eighth);
        }
        track.sortByTime();
    }
    return zarn::io::MidiFileWriter().toBytes(file);
}

class Song {
public:
    explicit Song(int notes) : _bytes(song(notes))
    {
        const auto handle = _files.open("song.mid", filesystem::OpenMode::Write);
        handle->writeBlock(_bytes.data(), static_cast<std::int64_t>(_bytes.size()));
        handle->close();
    }

    zarn::io::MidiFile parse() const
    {
        zarn::io::ImportReport report;
        return zarn::io::MidiFileReader().read("song.mid", _bytes, report);
    }

    std::shared_ptr<zarn::ScoreModel> import()
    {
        const auto handle = _files.open("song.mid", filesystem::OpenMode::Read);
        zarn::io::ImportReport report;
        return zarn::io::MidiImporter().read(*handle, report);
    }

private:
    std::string _bytes;
    filesystem::RAMFileSystem _files;
};

/// Times one iteration by a clock, from here to the end of the scope.
template <clockid_t clock>
class ClockTimer {
public:
    explicit ClockTimer(benchmark::State &state) : _state(state), _start(seconds()) { }
    ClockTimer(const ClockTimer &) = delete;
    ClockTimer &operator=(const ClockTimer &) = delete;
    ~ClockTimer() { _state.SetIterationTime(seconds() - _start); }

private:
    static double seconds()
    {
        timespec time = {};
        clock_gettime(clock, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    }

    benchmark::State &_state;
    double _start;
};
using Waiting = ClockTimer<CLOCK_MONOTONIC>;
using CpuOfAllThreads = ClockTimer<CLOCK_PROCESS_CPUTIME_ID>;

template <class Timer>
void parse(benchmark::State &state, const Song &song)
{
    for (auto _ : state) {
        const Timer timer(state);
        benchmark::DoNotOptimize(song.parse());
    }
}

struct PlainNote {
    std::uint64_t start;
    std::uint64_t end;
    unsigned char channel;
    unsigned char key;
    unsigned char velocity;
};

/// The notes of all tracks: each end belongs to the oldest note of its key that sounds.
std::vector<PlainNote> listNotes(const zarn::io::MidiFile &file)
{
    constexpr std::size_t keys = 128;
    constexpr std::size_t channels = 16;
    std::vector<PlainNote> notes;
    std::vector<std::vector<std::size_t>> open(channels * keys);
    for (const auto &track : file.tracks)
        for (const auto &event : track.events()) {
            if (!event.startsNote() && !event.endsNote())
                continue;
            auto &sounding = open[static_cast<std::size_t>(event.channel()) * keys + event.data1];
            if (event.startsNote()) {
                sounding.push_back(notes.size());
                notes.push_back({event.tick, event.tick,
                                 static_cast<unsigned char>(event.channel()), event.data1,
                                 event.data2});
            } else if (!sounding.empty()) {
                notes[sounding.front()].end = event.tick;
                sounding.erase(sounding.begin());
            }
        }
    return notes;
}

void parseAndPair(benchmark::State &state, const Song &song)
{
    for (auto _ : state) {
        const Waiting timer(state);
        benchmark::DoNotOptimize(listNotes(song.parse()).size());
    }
}

/// Has the heap put together what the score before it left behind, which else the first large
/// block of the next import would do.
void tidyMemory()
{
    constexpr std::size_t large = std::size_t(1) << 20;
    benchmark::DoNotOptimize(std::make_unique<char[]>(large));
}

template <class Timer>
void import(benchmark::State &state, Song &song)
{
    for (auto _ : state) {
        std::shared_ptr<zarn::ScoreModel> model; // destroyed outside of the time
        tidyMemory();
        const Timer timer(state);
        model = song.import();
        benchmark::DoNotOptimize(model);
    }
}

} // namespace

int main(int argc, char **argv)
{
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    mallopt(M_MMAP_THRESHOLD, std::numeric_limits<int>::max());
    Song small(51200);
    Song large(512000);
    bench::RatioReport report;
    report.compare(
        "512,000 notes imported, against a bare parse", 10,
        [&](benchmark::State &state) { parse<Waiting>(state, large); },
        [&](benchmark::State &state) { import <Waiting>(state, large); }, bench::Timing::Manual);
    report.compare(
        "512,000 notes imported, against one that pairs them", 10,
        [&](benchmark::State &state) { parseAndPair(state, large); },
        [&](benchmark::State &state) { import <Waiting>(state, large); }, bench::Timing::Manual);
    report.compare(
        "CPU time of all threads, against a bare parse", 14,
        [&](benchmark::State &state) { parse<CpuOfAllThreads>(state, large); },
        [&](benchmark::State &state) { import <CpuOfAllThreads>(state, large); },
        bench::Timing::Manual);
    report.compare(
        "512,000 notes against 51,200 (10 is linear)", 11,
        [&](benchmark::State &state) { import <CpuOfAllThreads>(state, small); },
        [&](benchmark::State &state) { import <CpuOfAllThreads>(state, large); },
        bench::Timing::Manual);
    return report.run(argc, argv);
}
