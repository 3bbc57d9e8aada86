// SPDX-License-Identifier: MIT
#include "RandomOperations.h"

#include <ZarnCore/model/ZarnMasterBarAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <vector>

using namespace zarn;

namespace {

/// A track, or the full score.
int trackOrScore(EditedScore &e)
{
    return e.random.percent(40) ? -1 : static_cast<int>(e.places.track());
}

std::vector<int> systems(EditedScore &e)
{
    std::vector<int> list;
    for (unsigned i = e.random.below(6); i > 0; --i)
        list.push_back(e.random.percent(2) ? 0 : static_cast<int>(1 + e.random.below(6)));
    return list;
}

std::vector<float> ratios(EditedScore &e)
{
    std::vector<float> list;
    for (unsigned i = e.random.below(4); i > 0; --i)
        list.push_back(e.random.percent(2) ? 0
                                           : static_cast<float>(e.random.between(1, 100)) / 10.0F);
    return list;
}

Fermata fermata(EditedScore &e)
{
    return static_cast<Fermata>(e.random.below(4));
}

/// Ones, so many as the meter of a bar has units, some of them joined.
BeamGroups beamGroups(EditedScore &e, unsigned bar)
{
    const auto master = e.score.masterTrack()->masterBar(bar);
    const unsigned units = master ? master->timeSignature().getNumerator() : 4;
    std::vector<std::uint8_t> groups;
    for (unsigned left = units; left > 0;) {
        const unsigned group = 1 + e.random.below(left < 4 ? left : 4);
        groups.push_back(static_cast<std::uint8_t>(group));
        left -= group;
    }
    return BeamGroups::areGroups(groups) && !e.random.percent(15) ? BeamGroups(groups)
                                                                  : BeamGroups();
}

bool editFermata(EditedScore &e)
{
    const auto &bars = e.score.masterTrack()->masterBars();
    const unsigned first = e.places.bar();
    for (std::size_t i = 0; i < bars.size(); ++i) {
        const auto bar = static_cast<unsigned>((first + i) % bars.size());
        const FermataMarks &marks = bars[bar]->fermatas();
        if (marks.empty())
            continue;
        const auto position = marks[e.random.below(marks.size())].position;
        auto mark = FermataMark::at(
            e.random.coin() ? position : utils::rational(e.random.below(20), 4), fermata(e));
        mark.stretch = static_cast<std::uint16_t>(e.random.below(1010));
        return e.score.editFermata(bar, position, mark);
    }
    return e.score.editFermata(first, 0, FermataMark::at(0, fermata(e)));
}

const std::vector<RandomOperation> operations = {
    {"setLayout", 1,
     [](EditedScore &e) {
         return e.score.setLayout(e.places.index(e.score.scoreModel()->views().size()),
                                  static_cast<ViewLayout>(e.random.below(3)));
     }},
    {"setMultiRest", 1,
     [](EditedScore &e) {
         return e.score.setMultiRest(e.places.index(e.score.scoreModel()->views().size()),
                                     e.random.coin());
     }},
    {"setPageSetup", 1,
     [](EditedScore &e) {
         PageSetup setup;
         setup.width = e.random.between(10000, 400000);
         setup.leftMargin = e.random.between(0, 30000);
         setup.staffSpace = e.random.between(400, 3000);
         if (e.random.coin())
             setup.orientation = PageSetup::Orientation::Landscape;
         return e.score.setPageSetup(setup);
     }},
    {"setAutoLayout", 1, [](EditedScore &e) { return e.score.setAutoLayout(trackOrScore(e)); }},
    {"setFixedLayout", 1,
     [](EditedScore &e) { return e.score.setFixedLayout(trackOrScore(e), e.random.below(52)); }},
    {"setFullScoreSystemsLayout", 2,
     [](EditedScore &e) { return e.score.setFullScoreSystemsLayout(systems(e)); }},
    {"setTrackSystemsLayout", 2,
     [](EditedScore &e) { return e.score.setTrackSystemsLayout(e.places.track(), systems(e)); }},
    {"setMasterBarBeamGroups", 1,
     [](EditedScore &e) {
         const auto bars = e.places.bars(2);
         return e.score.setMasterBarBeamGroups(bars.first, bars.second, beamGroups(e, bars.first));
     }},
    {"setMasterBarLayoutRatios", 1,
     [](EditedScore &e) { return e.score.setMasterBarLayoutRatios(e.places.bar(), ratios(e)); }},
    {"setBarLayoutRatios", 1,
     [](EditedScore &e) {
         return e.score.setBarLayoutRatios(e.places.track(), e.places.bar(), ratios(e));
     }},
    {"setFermata", 2,
     [](EditedScore &e) { return e.score.setFermata(e.places.beat(), fermata(e)); }},
    {"editFermata", 1, editFermata},
};

} // namespace

const std::vector<RandomOperation> &randomLayoutOperations()
{
    return operations;
}
