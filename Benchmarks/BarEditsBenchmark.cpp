// SPDX-License-Identifier: MIT
// Edits of many bars: barring music anew, pasting bars, pasting beats; against building the same
// bars by hand, and ten times the music against once.
#include "RatioReport.h"

#include <ZarnCore/commands/ZarnCommandStack.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/clip/ZarnClip.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>
#include <ZarnCore/score/ZarnScore.h>

#include <malloc.h>

#include <functional>
#include <limits>
#include <memory>
#include <vector>

namespace {

using namespace zarn;

constexpr unsigned beatCount = 4;

/// Quarters in some voices of each bar of some tracks.
void build(ScoreModel &model, unsigned trackCount, unsigned voiceCount, unsigned barCount)
{
    model.insertEmptyBarColumns(0, barCount);
    for (unsigned track = 0; track < trackCount; ++track) {
        model.createAndInsertTrack(track, InstrumentSet::flute);
        for (const auto &bar : model.track(track)->bars(0)) {
            for (unsigned slot = 0; slot < voiceCount; ++slot) {
                const auto voice = bar->ensureVoice(slot);
                for (unsigned i = 0; i < beatCount; ++i) {
                    const auto beat = std::make_shared<Beat>();
                    voice->addBeat(beat);
                    beat->addNote(
                        std::make_shared<Note>(static_cast<int>(60 + (bar->index() + i) % 24)));
                }
            }
        }
    }
}

struct BuiltScore {
    Score score;

    BuiltScore(unsigned trackCount, unsigned voiceCount, unsigned barCount)
    {
        build(*score.scoreModel(), trackCount, voiceCount, barCount);
    }
    ScoreModelIndex at(unsigned bar, int beat) const
    {
        return {score.scoreModel().get(), 0, static_cast<int>(bar), beat, 0, 0};
    }
    unsigned barCount() const { return score.masterTrack()->masterBarCount(); }
};

/// Lets the allocator put together what was freed, which it does when it is asked for a large
/// block: else the next round pays for the nodes of this one.
void settleHeap()
{
    constexpr std::size_t largeBlock = 1 << 16;
    std::vector<char> block(largeBlock);
    benchmark::DoNotOptimize(block.data());
}

/// Times an operation of a score alone, and takes it back.
void act(benchmark::State &state, BuiltScore &built, const std::function<bool(Score &)> &operation)
{
    for (auto _ : state) {
        {
            const bench::IterationTimer timer(state);
            benchmark::DoNotOptimize(operation(built.score));
        }
        built.score.commandStack().undo();
        built.score.commandStack().clearRedoStack();
        settleHeap();
    }
}

void buildByHand(benchmark::State &state, unsigned trackCount, unsigned voiceCount,
                 unsigned barCount)
{
    for (auto _ : state) {
        const auto model = std::make_shared<ScoreModel>();
        settleHeap();
        const bench::IterationTimer timer(state);
        build(*model, trackCount, voiceCount, barCount);
        benchmark::DoNotOptimize(model);
    }
}

/// Two tracks of four voices, in three quarters that were four.
void arrange(benchmark::State &state, unsigned barCount)
{
    BuiltScore built(2, 4, barCount);
    built.score.setMasterTimeSignature(0, barCount - 1, {3, 4});
    act(state, built, [&](Score &score) { return score.arrangeBars(0, barCount - 1); });
}

/// The same for some scores, one after the other: as much music as in a longer one, in as much
/// memory. A short score that is arranged again and again stays in the cache, where no user has it.
void arrangeEach(benchmark::State &state, unsigned scoreCount, unsigned barCount)
{
    std::vector<std::unique_ptr<BuiltScore>> scores;
    for (unsigned i = 0; i < scoreCount; ++i) {
        scores.push_back(std::make_unique<BuiltScore>(2, 4, barCount));
        scores.back()->score.setMasterTimeSignature(0, barCount - 1, {3, 4});
    }
    for (auto _ : state) {
        {
            const bench::IterationTimer timer(state);
            for (const auto &built : scores)
                benchmark::DoNotOptimize(built->score.arrangeBars(0, barCount - 1));
        }
        for (const auto &built : scores) {
            built->score.commandStack().undo();
            built->score.commandStack().clearRedoStack();
        }
    }
}

void pasteBars(benchmark::State &state, unsigned barCount)
{
    BuiltScore built(8, 1, barCount);
    const ScoreModelRange all(built.at(0, -1), built.at(barCount - 1, -1),
                              SelectionMode::MultiSelection | SelectionMode::MultiVoice
                                  | SelectionMode::MultiTrack);
    const Clip clip = copyOfBars(*built.score.scoreModel(), all);
    act(state, built, [&](Score &score) {
        return score.pasteBarRange(clip, barCount / 2, 0, 1, PasteMode::Insert);
    });
}

void pasteBeats(benchmark::State &state, unsigned count)
{
    BuiltScore built(1, 1, count / beatCount);
    const ScoreModelRange all(built.at(0, 0), built.at(count / beatCount - 1, beatCount - 1),
                              SelectionMode::MultiSelection);
    const Clip clip = copyOfBeats(*built.score.scoreModel(), all);
    act(state, built, [&](Score &score) {
        return score.pasteBeatRange(clip, built.at(0, 1), 1, PasteMode::Replace);
    });
}

} // namespace

int main(int argc, char **argv)
{
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    using bench::Timing;
    using benchmark::State;
    constexpr double mostTimes = 12;
    constexpr double mostOfBuilding = 3;
    bench::RatioReport report;
    report.compare(
        "bars: arrange 8 voices of 20,000 bars over ten times 2,000 bars", mostTimes / 10,
        [](State &state) { arrangeEach(state, 10, 2000); },
        [](State &state) { arrangeEach(state, 1, 20'000); }, Timing::Manual);
    // What the memory of the machine makes of ten times the music.
    report.compare(
        "bars: build 8 voices of 20,000 bars over 2,000 bars", mostTimes,
        [](State &state) { buildByHand(state, 2, 4, 2000); },
        [](State &state) { buildByHand(state, 2, 4, 20'000); }, Timing::Manual);
    report.compare(
        "bars: arrange 8 voices of 2,000 bars over building them", mostOfBuilding,
        [](State &state) { buildByHand(state, 2, 4, 2000); },
        [](State &state) { arrange(state, 2000); }, Timing::Manual);
    report.compare(
        "bars: paste 1,000 bars of 8 tracks over 100 bars", mostTimes,
        [](State &state) { pasteBars(state, 100); }, [](State &state) { pasteBars(state, 1000); },
        Timing::Manual);
    report.compare(
        "bars: paste 1,000 bars of 8 tracks over building them", mostOfBuilding,
        [](State &state) { buildByHand(state, 8, 1, 1000); },
        [](State &state) { pasteBars(state, 1000); }, Timing::Manual);
    report.compare(
        "bars: paste 10,000 beats over 1,000 beats", mostTimes,
        [](State &state) { pasteBeats(state, 1000); },
        [](State &state) { pasteBeats(state, 10000); }, Timing::Manual);
    report.compare(
        "bars: paste 10,000 beats over building them", mostOfBuilding,
        [](State &state) { buildByHand(state, 1, 1, 2500); },
        [](State &state) { pasteBeats(state, 10000); }, Timing::Manual);
    return report.run(argc, argv);
}
