// SPDX-License-Identifier: MIT
// Laying out a band of 300 and of 2,000 bars: from nothing, and again after edits. `--write FILE`
// writes the band of 300 bars as MusicXML, for programs that compare (scripts/compare-pages).
#include "BandScore.h"
#include "RatioReport.h"

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnMusicXmlExporter.h>
#include <ZarnCore/score/ZarnScore.h>
#include <ZarnLayout/export/ZarnSvgWriter.h>
#include <ZarnLayout/session/ZarnLayoutSession.h>

#include <QBuffer>
#include <QFile>
#include <QLoggingCategory>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace zarn;
using namespace zarn::layout;

constexpr unsigned usualBars = 300;
constexpr unsigned manyBars = 2000;

LayoutOptions optionsFor(ViewLayout view)
{
    LayoutOptions options;
    options.view = view;
    return options;
}

/// A score with its session, laid out.
class EditedBand {
public:
    EditedBand(unsigned barCount, ViewLayout view)
        : _barCount(barCount), _session(_score, optionsFor(view))
    {
        _score.setScoreModel(bench::band::make(barCount));
        _session.update();
    }

    /// Another pitch for a note somewhere; each call goes on to another one.
    void editNote()
    {
        ScoreModelIndex place = nextPlace();
        const int midi = place.beat()->notes().front()->midi();
        place.setNoteMidi(static_cast<std::uint32_t>(midi));
        _score.setMIDINote(place, midi < 60 ? midi + 3 : midi - 4);
    }

    /// A dynamic for a beat somewhere.
    void markBeat()
    {
        const ScoreModelIndex place = nextPlace();
        const NoteDynamic dynamic(_next % 2 == 0 ? NoteDynamic::Value::F : NoteDynamic::Value::P);
        _score.setBeatDynamic(ScoreModelRange(place), dynamic);
    }

    LayoutUpdate update() { return _session.update(); }
    Score &score() noexcept { return _score; }

private:
    ScoreModelIndex nextPlace()
    {
        _next = (_next + 811) % (_barCount * bench::band::trackCount);
        return {_score.scoreModel().get(),
                static_cast<int>(_next % bench::band::trackCount),
                static_cast<int>(_next / bench::band::trackCount),
                1,
                0,
                0};
    }

    unsigned _barCount;
    unsigned _next = 0;
    Score _score;
    LayoutSession _session;
};

EditedBand &band(unsigned barCount, ViewLayout view = ViewLayout::Pages)
{
    static std::map<std::pair<unsigned, ViewLayout>, EditedBand> bands;
    return bands.try_emplace({barCount, view}, barCount, view).first->second;
}

void layOutAll(benchmark::State &state, unsigned barCount, ViewLayout view = ViewLayout::Pages)
{
    const ScoreModel &model = *band(barCount, view).score().scoreModel();
    for (auto _ : state) {
        const bench::IterationTimer timer(state);
        benchmark::DoNotOptimize(layOut(model, optionsFor(view))->pages().size());
    }
}

void updateOnce(benchmark::State &state, unsigned barCount, ViewLayout view = ViewLayout::Pages)
{
    EditedBand &edited = band(barCount, view);
    for (auto _ : state) {
        edited.editNote();
        const bench::IterationTimer timer(state);
        benchmark::DoNotOptimize(edited.update().changed.size());
    }
}

/// Milliseconds of updates, each behind one edit, the shortest first. A few in a thousand edits
/// break lines elsewhere, and pages behind them: so many are made that these have their share.
std::vector<double> measureUpdates(unsigned barCount, ViewLayout view)
{
    EditedBand &edited = band(barCount, view);
    std::vector<double> times;
    for (int i = 0; i < 4000; ++i) {
        edited.editNote();
        const double start = bench::threadSeconds();
        edited.update();
        times.push_back((bench::threadSeconds() - start) * 1000);
    }
    std::sort(times.begin(), times.end());
    return times;
}

/// What so many in a hundred updates stay below, in milliseconds.
double updateTime(unsigned barCount, int percent, ViewLayout view = ViewLayout::Pages)
{
    static std::map<std::pair<unsigned, ViewLayout>, std::vector<double>> known;
    std::vector<double> &times = known[{barCount, view}];
    if (times.empty())
        times = measureUpdates(barCount, view);
    return times[times.size() * static_cast<std::size_t>(percent) / 100];
}

std::size_t bytesOf(const Layout &layout)
{
    std::size_t bytes = sizeof(Layout);
    for (const LayoutPage &page : layout.pages()) {
        bytes += sizeof(LayoutPage) + page.systems.size() * sizeof(PlacedSystem);
        if (page.marks)
            bytes += page.marks->byteCount();
        for (const PlacedSystem &system : page.systems) {
            bytes += sizeof(SystemDrawing) + system.drawing->marks.byteCount()
                + system.drawing->staves.capacity() * sizeof(StaffFrame);
            for (const BarFrame &bar : system.drawing->bars)
                bytes += sizeof(BarFrame) + bar.columns.capacity() * sizeof(ColumnFrame);
        }
    }
    return bytes;
}

double svgBytesPerPage(const Layout &layout)
{
    double bytes = 0;
    for (std::size_t page = 0; page < layout.pages().size(); ++page) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        SvgWriter().write(layout, page, buffer);
        bytes += buffer.size();
    }
    return bytes / static_cast<double>(layout.pages().size());
}

int writeBand(const char *path)
{
    QFile file(QString::fromLocal8Bit(path));
    if (!file.open(QIODevice::WriteOnly)) {
        std::fprintf(stderr, "%s cannot be written\n", path);
        return 1;
    }
    io::ExportReport losses;
    const std::string text = io::MusicXmlExporter().toText(*bench::band::make(usualBars), losses);
    file.write(text.data(), static_cast<qint64>(text.size()));
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("zarn.*=false"));
    if (argc == 3 && std::strcmp(argv[1], "--write") == 0)
        return writeBand(argv[2]);
    using benchmark::State;
    bench::RatioReport report;
    report.compare(
        "layout: 2,000 bars against 300", 8, [](State &state) { layOutAll(state, usualBars); },
        [](State &state) { layOutAll(state, manyBars); }, bench::Timing::Manual);
    report.compare(
        "layout: again after an edit, 300 bars, against all of it", 0.02,
        [](State &state) { layOutAll(state, usualBars); },
        [](State &state) { updateOnce(state, usualBars); }, bench::Timing::Manual);
    report.compare(
        "layout: again after an edit, 2,000 bars against 300", 2,
        [](State &state) { updateOnce(state, usualBars); },
        [](State &state) { updateOnce(state, manyBars); }, bench::Timing::Manual);
    report.compare(
        "layout: again after a macro of 1,000 commands against one layout", 1.2,
        [](State &state) { layOutAll(state, usualBars); },
        [](State &state) {
            EditedBand &edited = band(usualBars);
            for (auto _ : state) {
                edited.score().commandStack().beginMacroCommand();
                for (int i = 0; i < 1000; ++i)
                    edited.markBeat();
                edited.score().commandStack().endMacroCommand(true);
                const bench::IterationTimer timer(state);
                benchmark::DoNotOptimize(edited.update().changed.size());
            }
        },
        bench::Timing::Manual);
    // The second figure is ours, the first one what is to be reached.
    report.compareValues("layout: update, 300 bars, median in ms", 1,
                         [] { return std::make_pair(2.0, updateTime(usualBars, 50)); });
    report.compareValues("layout: update, 300 bars, 99 % in ms", 1,
                         [] { return std::make_pair(5.0, updateTime(usualBars, 99)); });
    report.compareValues("layout: update, 2,000 bars, median in ms", 1,
                         [] { return std::make_pair(2.0, updateTime(manyBars, 50)); });
    report.compareValues("layout: update, 2,000 bars, 99 % in ms", 1,
                         [] { return std::make_pair(5.0, updateTime(manyBars, 99)); });
    const auto line = ViewLayout::SingleLine;
    report.compareValues("layout: update of one line, 300 bars, median in ms", 1,
                         [=] { return std::make_pair(2.0, updateTime(usualBars, 50, line)); });
    report.compareValues("layout: update of one line, 300 bars, 99 % in ms", 1,
                         [=] { return std::make_pair(5.0, updateTime(usualBars, 99, line)); });
    report.compareValues("layout: update of one line, 2,000 bars, median in ms", 1,
                         [=] { return std::make_pair(2.0, updateTime(manyBars, 50, line)); });
    report.compareValues("layout: update of one line, 2,000 bars, 99 % in ms", 1,
                         [=] { return std::make_pair(5.0, updateTime(manyBars, 99, line)); });
    report.compare(
        "layout: one line, again after an edit, 300 bars, against all of it", 0.06,
        [](State &state) { layOutAll(state, usualBars, ViewLayout::SingleLine); },
        [](State &state) { updateOnce(state, usualBars, ViewLayout::SingleLine); },
        bench::Timing::Manual);
    report.compare(
        "layout: one line, 2,000 bars against 300", 8,
        [](State &state) { layOutAll(state, usualBars, ViewLayout::SingleLine); },
        [](State &state) { layOutAll(state, manyBars, ViewLayout::SingleLine); },
        bench::Timing::Manual);
    report.compareValues("layout: bytes a note", 1, [] {
        const auto model = bench::band::make(usualBars);
        const double notes = bench::band::noteCount(*model);
        return std::make_pair(600.0, static_cast<double>(bytesOf(*layOut(*model))) / notes);
    });
    report.compareValues("layout: bytes a page as SVG", 1, [] {
        return std::make_pair(100e3, svgBytesPerPage(*layOut(*bench::band::make(usualBars))));
    });
    return report.run(argc, argv);
}
