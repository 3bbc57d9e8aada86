// SPDX-License-Identifier: MIT
// Walks over selections and flat lists against nested loops over the tree.
#include "BigScore.h"
#include "CountedAllocations.h"
#include "RatioReport.h"

#include <ZarnCore/model/places/ZarnFlatten.h>
#include <ZarnCore/model/places/ZarnRangeNoteIterator.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <malloc.h>

#include <limits>

namespace {

using namespace bench::bigscore;

zarn::ScoreModel &model()
{
    static const std::shared_ptr<zarn::ScoreModel> score = [] {
        auto built = std::make_shared<zarn::ScoreModel>();
        build(*built);
        return built;
    }();
    return *score;
}

zarn::ScoreModelRange everything()
{
    const zarn::ScoreModelIndex first(&model(), 0, 0, -1, 0, 0);
    const zarn::ScoreModelIndex last(&model(), 0, barCount - 1, -1, 0, 0);
    return {first, last, static_cast<zarn::SelectionMode>(7)};
}

template <class Use>
void forEachBeat(const Use &use)
{
    for (const auto &track : model().tracks())
        for (const auto &staff : track->staves())
            for (const auto &bar : staff->bars())
                for (const auto &voice : bar->voices())
                    if (voice)
                        for (const auto &beat : voice->beats())
                            use(*beat);
}

template <class Use>
void forEachNote(const Use &use)
{
    forEachBeat([&use](const zarn::Beat &beat) {
        for (const auto &note : beat.notes())
            use(note);
    });
}

/// What one walk over all beats and one over all notes allocate.
std::pair<double, double> allocationsOfWalks()
{
    const unsigned long before = bench::allocationCount;
    unsigned steps = 0;
    for (zarn::RangeBeatIterator it(everything()); it.oneStep();)
        steps += it.beat()->noteCount() != 0 ? 1 : 0;
    for (zarn::RangeNoteIterator it(everything()); it.oneStep();)
        steps += it.note()->midi() >= 0 ? 1 : 0;
    return {steps, static_cast<double>(bench::allocationCount - before)};
}

} // namespace

int main(int argc, char **argv)
{
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    model();
    using bench::IterationTimer;
    using bench::Timing;
    using benchmark::State;
    bench::RatioReport report;

    report.compare(
        "walk: 256,000 beats by RangeBeatIterator", 3,
        [](State &state) {
            for (auto _ : state) {
                unsigned sum = 0;
                forEachBeat([&sum](const zarn::Beat &beat) { sum += beat.noteCount(); });
                benchmark::DoNotOptimize(sum);
            }
        },
        [](State &state) {
            for (auto _ : state) {
                unsigned sum = 0;
                for (zarn::RangeBeatIterator it(everything()); it.oneStep();)
                    sum += it.beat()->noteCount();
                benchmark::DoNotOptimize(sum);
            }
        });
    report.compare(
        "walk: 512,000 notes by RangeNoteIterator", 3,
        [](State &state) {
            for (auto _ : state) {
                int sum = 0;
                forEachNote([&sum](const auto &note) { sum += note->midi(); });
                benchmark::DoNotOptimize(sum);
            }
        },
        [](State &state) {
            for (auto _ : state) {
                int sum = 0;
                for (zarn::RangeNoteIterator it(everything()); it.oneStep();)
                    sum += it.note()->midi();
                benchmark::DoNotOptimize(sum);
            }
        });
    report.compare(
        "walk: flatten::notes of 512,000", 1.5,
        [](State &state) {
            for (auto _ : state) {
                zarn::flatten::Notes notes;
                const IterationTimer timer(state);
                notes.reserve(noteCount);
                forEachNote([&notes](const auto &note) { notes.push_back(note); });
            }
        },
        [](State &state) {
            for (auto _ : state) {
                zarn::flatten::Notes notes;
                const IterationTimer timer(state);
                notes = zarn::flatten::notes(model());
            }
        },
        Timing::Manual);
    report.compareValues("walk: allocations in as many steps", 0, allocationsOfWalks);
    return report.run(argc, argv);
}
