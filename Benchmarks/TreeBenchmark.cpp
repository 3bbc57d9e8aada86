// SPDX-License-Identifier: MIT
// The score tree against a plain tree: 32 tracks of 2,000 bars of 4 beats of 2 notes.
#include "BigScore.h"
#include "PlainTree.h"
#include "RatioReport.h"

#include <ZarnCore/commands/ZarnCommandStack.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <malloc.h>

#include <limits>
#include <optional>

namespace {

using namespace bench::bigscore;

plain::Score buildPlain()
{
    plain::Score score;
    for (unsigned t = 0; t < trackCount; ++t) {
        score.staves.push_back(std::make_shared<plain::Staff>());
        score.staves.back()->index = t;
        plain::insert(score.staves.back(), 0, plain::makeBars(barCount));
    }
    for (const auto &staff : score.staves)
        for (const auto &bar : staff->bars) {
            const auto voice = std::make_shared<plain::Voice>();
            plain::set(bar, 0, voice);
            for (unsigned b = 0; b < beatCount; ++b) {
                const auto beat = std::make_shared<plain::Beat>();
                plain::add(voice, beat);
                for (unsigned n = 0; n < notesPerBeat; ++n) {
                    const auto note = std::make_shared<plain::Note>();
                    note->place[0] = static_cast<std::int8_t>(pitch(bar->index, b, n));
                    plain::add(beat, note);
                }
            }
        }
    return score;
}

/// Both trees, built when they are asked for first.
plain::Score &plainScore()
{
    static plain::Score score = buildPlain();
    return score;
}

zarn::Score &ourScore()
{
    static const std::unique_ptr<zarn::Score> score = [] {
        auto built = std::make_unique<zarn::Score>();
        build(*built->scoreModel());
        return built;
    }();
    return *score;
}

void insertPlain(unsigned count)
{
    for (const auto &staff : plainScore().staves)
        plain::insert(staff, 0, plain::makeBars(count));
}

std::vector<plain::Bars> takePlain(unsigned count)
{
    std::vector<plain::Bars> taken;
    for (const auto &staff : plainScore().staves)
        taken.push_back(plain::take(staff, 0, count));
    return taken;
}

void putBackPlain(std::vector<plain::Bars> taken)
{
    for (std::size_t i = 0; i < taken.size(); ++i)
        plain::insert(plainScore().staves[i], 0, std::move(taken[i]));
}

void createPlain(benchmark::State &state, unsigned count)
{
    for (auto _ : state) {
        {
            const bench::IterationTimer timer(state);
            insertPlain(count);
        }
        takePlain(count);
    }
}

void createOurs(benchmark::State &state, unsigned count)
{
    zarn::Score &score = ourScore();
    for (auto _ : state) {
        {
            const bench::IterationTimer timer(state);
            score.createBars(0, count);
        }
        score.commandStack().undo();
        // Or the next round would also be charged for dropping these bars.
        score.commandStack().clearRedoStack();
    }
}

std::pair<double, double> heapUse()
{
    const auto used = [] { return static_cast<double>(mallinfo2().uordblks); };
    const double start = used();
    double plainUse = 0;
    {
        const plain::Score score = buildPlain();
        plainUse = used() - start;
    }
    const double middle = used();
    zarn::Score score;
    build(*score.scoreModel());
    return {plainUse / noteCount, (used() - middle) / noteCount};
}

} // namespace

int main(int argc, char **argv)
{
    // Freed trees stay with the process: what is measured is the work, not the kernel's page
    // faults.
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    // Both trees are built in a heap that nothing has scattered yet.
    plainScore();
    ourScore();
    using bench::IterationTimer;
    using bench::Timing;
    using benchmark::State;
    bench::RatioReport report;
    // The heap first, before the others fragment it.
    const auto heap = heapUse();

    report.compare(
        "tree: build 512,000 notes", 1.3,
        [](State &state) {
            for (auto _ : state) {
                std::optional<plain::Score> score;
                const IterationTimer timer(state);
                score = buildPlain();
                benchmark::DoNotOptimize(score);
            }
        },
        [](State &state) {
            for (auto _ : state) {
                std::optional<zarn::Score> score(std::in_place);
                const IterationTimer timer(state);
                build(*score->scoreModel());
                benchmark::DoNotOptimize(score);
            }
        },
        Timing::Manual);
    report.compare(
        "tree: walk all notes", 1.15,
        [](State &state) {
            for (auto _ : state) {
                int sum = 0;
                for (const auto &staff : plainScore().staves)
                    for (const auto &bar : staff->bars)
                        for (const auto &voice : bar->voices)
                            if (voice)
                                for (const auto &beat : voice->beats)
                                    for (const auto &note : beat->notes)
                                        sum += note->place[0];
                benchmark::DoNotOptimize(sum);
            }
        },
        [](State &state) {
            for (auto _ : state) {
                int sum = 0;
                for (const auto &track : ourScore().scoreModel()->tracks())
                    for (const auto &staff : track->staves())
                        for (const auto &bar : staff->bars())
                            for (const auto &voice : bar->voices())
                                if (voice)
                                    for (const auto &beat : voice->beats())
                                        for (const auto &note : beat->notes())
                                            sum += note->midi();
                benchmark::DoNotOptimize(sum);
            }
        });
    report.compare(
        "tree: deep copy", 1.3,
        [](State &state) {
            for (auto _ : state) {
                plain::Score copy;
                const IterationTimer timer(state);
                copy = plain::clone(plainScore());
            }
        },
        [](State &state) {
            for (auto _ : state) {
                std::shared_ptr<zarn::ScoreModel> copy;
                const IterationTimer timer(state);
                copy = ourScore().scoreModel()->clone();
            }
        },
        Timing::Manual);
    report.compare(
        "tree: createBars(0, 1)", 1.3, [](State &state) { createPlain(state, 1); },
        [](State &state) { createOurs(state, 1); }, Timing::Manual);
    report.compare(
        "tree: createBars(0, 100)", 1.3, [](State &state) { createPlain(state, 100); },
        [](State &state) { createOurs(state, 100); }, Timing::Manual);
    report.compare(
        "tree: createBars(0, 100) over createBars(0, 1)", 6,
        [](State &state) { createOurs(state, 1); }, [](State &state) { createOurs(state, 100); },
        Timing::Manual);
    report.compare(
        "tree: removeBarRange(0, 99)", 1.3,
        [](State &state) {
            for (auto _ : state) {
                std::vector<plain::Bars> taken;
                {
                    const IterationTimer timer(state);
                    taken = takePlain(100);
                }
                putBackPlain(std::move(taken));
            }
        },
        [](State &state) {
            for (auto _ : state) {
                {
                    const IterationTimer timer(state);
                    ourScore().removeBarRange(0, 99);
                }
                ourScore().commandStack().undo();
            }
        },
        Timing::Manual);
    report.compare(
        "tree: undo of removeBarRange(0, 99)", 1.3,
        [](State &state) {
            for (auto _ : state) {
                auto taken = takePlain(100);
                const IterationTimer timer(state);
                putBackPlain(std::move(taken));
            }
        },
        [](State &state) {
            for (auto _ : state) {
                ourScore().removeBarRange(0, 99);
                const IterationTimer timer(state);
                ourScore().commandStack().undo();
            }
        },
        Timing::Manual);
    report.compare(
        "tree: redo of removeBarRange(0, 99)", 1.3,
        [](State &state) {
            for (auto _ : state) {
                std::vector<plain::Bars> taken;
                {
                    const IterationTimer timer(state);
                    taken = takePlain(100);
                }
                putBackPlain(std::move(taken));
            }
        },
        [](State &state) {
            ourScore().removeBarRange(0, 99);
            for (auto _ : state) {
                ourScore().commandStack().undo();
                const IterationTimer timer(state);
                ourScore().commandStack().redo();
            }
            ourScore().commandStack().undo();
        },
        Timing::Manual);
    report.compareValues("tree: heap bytes per note", 1.5, [heap] { return heap; });
    report.compareValues("tree: heap bytes per note, all in, of 320", 1,
                         [heap] { return std::make_pair(320.0, heap.second); });
    return report.run(argc, argv);
}
