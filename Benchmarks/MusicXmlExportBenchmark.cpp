// SPDX-License-Identifier: MIT
// Writing MusicXML from the tree against the bare loop over measures with pugixml: the same number
// of notes with eight elements each, made and printed one measure at a time; how the time grows
// with the bars, and what it takes of memory above the model.
#include "RatioReport.h"

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnMusicXmlExporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <filesystem/DiskFileSystem.h>

#include <pugixml.hpp>

#include <sys/resource.h>

#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr unsigned trackCount = 8;
constexpr unsigned notesPerBar = 8;
constexpr const char *nowhere = "/dev/null";

/// Eight tracks of eighths, 512,000 notes in 8,000 bars. `turn` makes scores of other notes.
std::shared_ptr<zarn::ScoreModel> scoreOf(unsigned bars, unsigned turn = 0)
{
    using namespace zarn;
    auto model = std::make_shared<ScoreModel>();
    for (unsigned track = 0; track < trackCount; ++track)
        model->createAndInsertTrack(track, InstrumentSet::flute);
    model->insertEmptyBarColumns(0, bars);
    const RhythmValue eighth(RhythmValue::NoteValue::Eighth);
    for (unsigned track = 0; track < trackCount; ++track)
        for (unsigned bar = 0; bar < bars; ++bar) {
            Voice::Beats beats;
            for (unsigned i = 0; i < notesPerBar; ++i) {
                auto beat = std::make_shared<Beat>(eighth);
                beat->addNote(std::make_shared<zarn::Note>(
                    static_cast<int>(60 + (track * 5 + bar * 3 + i * 7 + turn) % 21)));
                beats.push_back(std::move(beat));
            }
            model->track(track)->bar(bar)->ensureVoice(0)->insertBeats(0, std::move(beats));
        }
    return model;
}

/// Takes pieces and forgets them.
class Nowhere final : public pugi::xml_writer {
public:
    void write(const void *data, std::size_t size) override
    {
        benchmark::DoNotOptimize(data);
        _size += size;
    }

private:
    std::size_t _size = 0;
};

/// What no writer with pugixml can leave out.
void writeBareMeasures(unsigned bars)
{
    Nowhere sink;
    pugi::xml_document document;
    for (unsigned measure = 0; measure < bars * trackCount; ++measure) {
        document.reset();
        auto node = document.append_child("measure");
        node.append_attribute("number").set_value(measure % bars + 1);
        for (unsigned i = 0; i < notesPerBar; ++i) {
            auto note = node.append_child("note");
            auto pitch = note.append_child("pitch");
            pitch.append_child("step").append_child(pugi::node_pcdata).set_value("C");
            pitch.append_child("octave").append_child(pugi::node_pcdata).set_value("4");
            note.append_child("duration").append_child(pugi::node_pcdata).set_value("1");
            note.append_child("voice").append_child(pugi::node_pcdata).set_value("1");
            note.append_child("type").append_child(pugi::node_pcdata).set_value("eighth");
            auto beam = note.append_child("beam");
            beam.append_attribute("number").set_value("1");
            beam.append_child(pugi::node_pcdata).set_value("continue");
        }
        node.print(sink, " ", pugi::format_indent, pugi::encoding_utf8, 2);
    }
}

void bare(benchmark::State &state, unsigned bars)
{
    for (auto _ : state)
        writeBareMeasures(bars);
}

/// Into a file that takes all and keeps nothing.
class NullHandle final : public filesystem::FileHandle {
public:
    std::string path() const override { return nowhere; }
    std::int64_t size() const override { return _size; }
    std::int64_t position() const override { return _size; }

protected:
    bool doSeek(std::int64_t) override { return true; }
    std::int64_t doRead(void *, std::int64_t) override { return -1; }
    std::int64_t doWrite(const void *data, std::int64_t count) override
    {
        benchmark::DoNotOptimize(data);
        _size += count;
        return count;
    }
    bool doClose() override { return true; }

private:
    std::int64_t _size = 0;
};

void write(const zarn::ScoreModel &model)
{
    NullHandle handle;
    zarn::io::MusicXmlExporter().write(model, handle);
}

void ours(benchmark::State &state, const std::vector<std::shared_ptr<zarn::ScoreModel>> &models)
{
    for (auto _ : state)
        for (const auto &model : models)
            write(*model);
}

/// Kilobytes that the process has had at most.
double peak()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss);
}

} // namespace

int main(int argc, char **argv)
{
    constexpr unsigned many = 8000;
    constexpr unsigned few = 800;
    std::vector<std::shared_ptr<zarn::ScoreModel>> small;
    for (unsigned turn = 0; turn < many / few; ++turn)
        small.push_back(scoreOf(few, turn));
    const std::vector<std::shared_ptr<zarn::ScoreModel>> large = {scoreOf(many)};
    const double before = peak();
    write(*large.front());
    const double above = peak() - before;
    bench::RatioReport report;
    report.compare(
        "512,000 notes written, against bare measures", 1.5,
        [](benchmark::State &state) { bare(state, many); },
        [&](benchmark::State &state) { ours(state, large); });
    // Ten scores and not one ten times: it would stay in the caches of the processor.
    report.compare(
        "8,000 bars against 800 bars of ten scores (1 is linear)", 1.1,
        [&](benchmark::State &state) { ours(state, small); },
        [&](benchmark::State &state) { ours(state, large); });
    report.compareValues("memory above the model, in parts of 64 MB", 1,
                         [above] { return std::make_pair(64.0 * 1024, above); });
    return report.run(argc, argv);
}
