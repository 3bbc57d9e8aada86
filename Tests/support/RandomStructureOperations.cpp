// SPDX-License-Identifier: MIT
#include "RandomOperations.h"

#include <ZarnCore/model/ZarnBarColumns.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/clip/ZarnClip.h>
#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>

using namespace zarn;

namespace {

/// Copies of bars of the score, from anywhere, as somebody prepares them.
Staff::Bars copiedBars(EditedScore &e, unsigned track, unsigned staff, unsigned count)
{
    Staff::Bars bars;
    const auto node = e.score.track(track);
    const auto source = node ? node->staff(staff) : nullptr;
    for (unsigned i = 0; i < count; ++i) {
        const auto bar = source ? source->bar(e.places.bar()) : nullptr;
        bars.push_back(bar ? bar->clone() : std::make_shared<Bar>());
    }
    return bars;
}

bool modifyBarRange(EditedScore &e)
{
    const unsigned track = e.places.track();
    const unsigned staff = e.places.staffOf(track);
    const unsigned first = e.places.bar();
    return e.score.modifyBarRange(track, staff, first,
                                  copiedBars(e, track, staff, 1 + e.random.below(3)));
}

bool modifyBarRangeAllTracks(EditedScore &e)
{
    const auto bars = e.places.bars(3);
    const bool mayGrow = e.places.barCount() < e.firstBarCount + 40;
    const unsigned count = 1 + e.random.below(mayGrow ? 4 : 1);
    BarColumns columns;
    for (unsigned i = 0; i < count; ++i) {
        const auto master = e.score.masterTrack()->masterBar(e.places.bar());
        columns.masterBars.push_back(master ? master->clone() : std::make_shared<MasterBar>());
    }
    for (const auto &track : e.score.tracks()) {
        columns.bars.emplace_back();
        for (const auto &staff : track->staves())
            columns.bars.back().push_back(copiedBars(e, track->index(), staff->index(), count));
    }
    return e.score.modifyBarRangeAllTracks(bars.first, bars.second, std::move(columns));
}

PasteMode pasteMode(Random &random)
{
    return static_cast<PasteMode>(random.below(3));
}

/// Once the score has become long, over what is there.
bool pasteBarRange(EditedScore &e)
{
    const Clip clip = copyOfBars(*e.score.scoreModel(), e.places.range());
    const bool mayGrow = e.places.barCount() < e.firstBarCount + 40;
    const unsigned track = clip.hasColumns ? 0 : e.places.track();
    return e.score.pasteBarRange(clip, e.places.index(e.places.barCount() + 1), track,
                                 e.random.percent(3) ? 0 : 1 + e.random.below(2),
                                 mayGrow ? pasteMode(e.random) : PasteMode::Replace);
}

bool pasteBeatRange(EditedScore &e)
{
    const Clip clip = copyOfBeats(*e.score.scoreModel(), e.places.range());
    const bool mayGrow = e.places.barCount() < e.firstBarCount + 40;
    return e.score.pasteBeatRange(clip, mayGrow ? e.places.gap() : e.places.beat(),
                                  e.random.percent(3) ? 0 : 1 + e.random.below(2),
                                  pasteMode(e.random));
}

bool replaceScore(EditedScore &e)
{
    // What was changed in the copy comes and goes with it.
    const auto copy = e.score.scoreModel()->clone();
    copy->setScoreProperty(ScoreProperty::Title, "copy");
    return e.score.replaceScore(e.random.percent(5) ? e.score.scoreModel() : copy);
}

const std::vector<RandomOperation> operations = {
    {"modifyBarRange", 3, modifyBarRange},
    {"modifyBarRangeAllTracks", 2, modifyBarRangeAllTracks},
    {"swapVoices", 3,
     [](EditedScore &e) {
         return e.score.swapVoices(e.places.range(), e.random.below(4), e.random.below(5));
     }},
    {"moveVoice", 4,
     [](EditedScore &e) { return e.score.moveVoice(e.places.range(), e.random.below(4)); }},
    {"completeReduceBarsWithRests", 3,
     [](EditedScore &e) { return e.score.completeReduceBarsWithRests(e.places.range()); }},
    {"arrangeBars", 2,
     [](EditedScore &e) {
         const auto bars = e.places.bars(5);
         return e.score.arrangeBars(bars.first, bars.second);
     }},
    {"pasteBarRange", 3, pasteBarRange},
    {"pasteBeatRange", 5, pasteBeatRange},
    {"replaceScore", 1, replaceScore},
};

} // namespace

const std::vector<RandomOperation> &randomStructureOperations()
{
    return operations;
}
