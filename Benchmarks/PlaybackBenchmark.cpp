// SPDX-License-Identifier: MIT
// The plan of a big score against a bare loop that lists its notes and sorts them; MIDI files
// against a loop that sorts events and writes them.
#include "BigScore.h"
#include "RatioReport.h"

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnMidiExporter.h>
#include <ZarnCore/io/midi/ZarnMidiFile.h>
#include <ZarnCore/io/midi/ZarnMidiFileWriter.h>
#include <ZarnCore/playback/ZarnPlaybackPlan.h>

#include <malloc.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

namespace {

using namespace bench::bigscore;

std::shared_ptr<zarn::ScoreModel> makeScore(unsigned bars)
{
    auto built = std::make_shared<zarn::ScoreModel>();
    build(*built);
    if (bars < barCount)
        built->takeBarColumns(bars, barCount - 1);
    return built;
}

const zarn::ScoreModel &model()
{
    static const auto score = makeScore(barCount);
    return *score;
}

const zarn::ScoreModel &halfAsLong()
{
    static const auto score = makeScore(barCount / 2);
    return *score;
}

struct PlainNote {
    double start;
    double end;
    unsigned char channel;
    unsigned char key;
    unsigned char velocity;
};

/// What the shortest program would do: no ties, no repeats, no signs.
std::vector<PlainNote> listNotes(const zarn::ScoreModel &score)
{
    std::vector<PlainNote> notes;
    for (const auto &track : score.tracks())
        for (const auto &staff : track->staves()) {
            utils::rational barStart;
            for (const auto &bar : staff->bars()) {
                for (const auto &voice : bar->voices()) {
                    if (!voice)
                        continue;
                    utils::rational start = barStart;
                    for (const auto &beat : voice->beats()) {
                        const utils::rational end = start + beat->length();
                        for (const auto &note : beat->notes())
                            notes.push_back({start.toDouble(), end.toDouble(),
                                             static_cast<unsigned char>(track->index() % 16),
                                             static_cast<unsigned char>(note->midi()), 80});
                        start = end;
                    }
                }
                barStart += 4;
            }
        }
    std::sort(notes.begin(), notes.end(), [](const PlainNote &left, const PlainNote &right) {
        return left.start < right.start;
    });
    return notes;
}

void addVariable(std::string &bytes, unsigned value)
{
    for (int shift = 21; shift > 0; shift -= 7)
        if (value >> shift != 0)
            bytes += static_cast<char>((value >> shift & 0x7F) | 0x80);
    bytes += static_cast<char>(value & 0x7F);
}

/// Sorts the ends and beginnings of the notes, and writes them as one track.
std::string writeNotes(const std::vector<PlainNote> &notes)
{
    struct Event {
        unsigned tick;
        unsigned char status;
        unsigned char key;
        unsigned char velocity;
    };
    std::vector<Event> events;
    events.reserve(notes.size() * 2);
    for (const PlainNote &note : notes) {
        const auto channel = note.channel;
        events.push_back({static_cast<unsigned>(note.start * 960),
                          static_cast<unsigned char>(0x90 | channel), note.key, note.velocity});
        events.push_back({static_cast<unsigned>(note.end * 960),
                          static_cast<unsigned char>(0x80 | channel), note.key, 64});
    }
    std::sort(events.begin(), events.end(), [](const Event &left, const Event &right) {
        return left.tick < right.tick || (left.tick == right.tick && left.status < right.status);
    });
    std::string bytes;
    unsigned last = 0;
    for (const Event &event : events) {
        addVariable(bytes, event.tick - last);
        bytes += static_cast<char>(event.status);
        bytes += static_cast<char>(event.key);
        bytes += static_cast<char>(event.velocity);
        last = event.tick;
    }
    return bytes;
}

} // namespace

int main(int argc, char **argv)
{
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    mallopt(M_MMAP_THRESHOLD, std::numeric_limits<int>::max());
    model();
    halfAsLong();
    using benchmark::State;
    bench::RatioReport report;
    report.compare(
        "playback: plan of 512,000 notes", 3,
        [](State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(listNotes(model()).size());
        },
        [](State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(zarn::playback::PlaybackPlan(model()).notes().size());
        });
    report.compare(
        "playback: 512,000 notes against twice 256,000", 1.25,
        [](State &state) {
            for (auto _ : state)
                for (int i = 0; i < 2; ++i)
                    benchmark::DoNotOptimize(
                        zarn::playback::PlaybackPlan(halfAsLong()).notes().size());
        },
        [](State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(zarn::playback::PlaybackPlan(model()).notes().size());
        });
    report.compare(
        "playback: 512,000 notes to a MIDI file", 3,
        [](State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(writeNotes(listNotes(model())).size());
        },
        [](State &state) {
            for (auto _ : state) {
                zarn::io::ExportReport losses;
                const auto file = zarn::io::MidiExporter().toFile(model(), losses);
                benchmark::DoNotOptimize(zarn::io::MidiFileWriter().toBytes(file).size());
            }
        });
    return report.run(argc, argv);
}
