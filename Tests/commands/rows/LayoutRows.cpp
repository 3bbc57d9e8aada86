// SPDX-License-Identifier: MIT
#include "../CommandRows.h"

#include "support/CommandLaw.h"
#include <ZarnCore/commands/ZarnTransaction.h>

#include <limits>

using namespace rich;

std::vector<CommandRow> layoutRows()
{
    return {
        {"SetLayout", [](SmallScore &s) { return s.score.setLayout(0, ViewLayout::SingleLine); },
         "ScoreViewLayoutChanged(0) ", nullptr, true},
        {"SetPageSetup",
         [](SmallScore &s) {
             PageSetup setup;
             setup.width = 148000;
             setup.height = 210000;
             setup.orientation = PageSetup::Orientation::Landscape;
             setup.leftMargin = 0;
             return s.score.setPageSetup(setup);
         },
         "ScoreViewLayoutChanged(0) ", nullptr, true},
        {"SetMultiRest", [](SmallScore &s) { return s.score.setMultiRest(0, true); },
         "ScoreViewMultiRest(1,0) ", "ScoreViewMultiRest(0,0) ", true},
        {"SetAutoLayout", [](SmallScore &s) { return s.score.setAutoLayout(-1); },
         "FullScoreSystemsLayoutChanged ScoreViewSystemLayoutChanged(0) ", nullptr, true},
        {"SetFixedLayout", [](SmallScore &s) { return s.score.setFixedLayout(-1, 3); },
         "FullScoreSystemsLayoutChanged ScoreViewSystemLayoutChanged(0) ", nullptr, true},
        {"SetFixedLayoutOfATrack", [](SmallScore &s) { return s.score.setFixedLayout(0, 50); },
         "TrackSystemsLayoutChanged(0) ", nullptr},
        {"SetFullScoreSystemsLayout",
         [](SmallScore &s) {
             return s.score.setFullScoreSystemsLayout({4, 200, 1});
         },
         "FullScoreSystemsLayoutChanged ScoreViewSystemLayoutChanged(0) ", nullptr, true},
        {"SetTrackSystemsLayout",
         [](SmallScore &s) {
             return s.score.setTrackSystemsLayout(1, {1, 2, 3});
         },
         "TrackSystemsLayoutChanged(1) ", nullptr},
        {"SetMasterBarBeamGroups",
         [](SmallScore &s) {
             return s.score.setMasterBarBeamGroups(1, 5, BeamGroups({3, 1}));
         },
         "MasterBarBeamGroups(1,5) ", nullptr},
        {"SetMasterBarLayoutRatios",
         [](SmallScore &s) {
             return s.score.setMasterBarLayoutRatios(2, {0.5F, 1, 10});
         },
         "BarLayoutRatiosChanged(2,4) ", nullptr},
        {"SetBarLayoutRatios",
         [](SmallScore &s) {
             return s.score.setBarLayoutRatios(1, 4, {0.1F, 2.5F});
         },
         "BarLayoutRatiosChanged(4,5) ", nullptr},
        {"SetFermata", [](SmallScore &s) { return s.score.setFermata(s.at(1, 1), Fermata::Long); },
         "MasterBarFermata(1,1) ", nullptr},
        {"EditFermata",
         [](SmallScore &s) {
             Transaction step(&s.score, QStringLiteral("EditFermata"));
             if (!s.score.setFermata(s.at(1, 1), Fermata::Long)
                 || !s.score.editFermata(1, 1, FermataMark::at(2, Fermata::Short)))
                 return false;
             step.commit();
             return true;
         },
         "MasterBarFermata(1,1) MasterBarFermata(1,1) ", nullptr},
    };
}

void expectLayoutCommandsRefused(RichScore &rich)
{
    Score &score = rich.score;
    rich.model.masterTrack()->masterBars()[1]->setFermatas(
        {FermataMark::at(0, Fermata::Short), FermataMark::at(1, Fermata::Long)});
    rich.beat(1, 2).setGraceType(GraceType::OnBeat);
    expectAllRefused(
        score,
        {
            [&] { return score.setLayout(1, ViewLayout::Pages); },
            [&] { return score.setLayout(0, static_cast<ViewLayout>(3)); },
            [&] { return score.setMultiRest(1, true); },
            [&] {
                PageSetup setup;
                setup.width = 19999;
                return score.setPageSetup(setup);
            },
            [&] {
                PageSetup setup;
                setup.leftMargin = setup.rightMargin = 60000;
                return score.setPageSetup(setup);
            },
            [&] {
                PageSetup setup;
                setup.orientation = static_cast<PageSetup::Orientation>(2);
                return score.setPageSetup(setup);
            },
            [&] {
                PageSetup setup;
                setup.staffSpace = 0;
                return score.setPageSetup(setup);
            },
            [&] { return score.setAutoLayout(2); },
            [&] { return score.setAutoLayout(-2); },
            [&] { return score.setFixedLayout(-1, 0); },
            [&] { return score.setFixedLayout(-1, 51); },
            [&] {
                return score.setFullScoreSystemsLayout({4, 0});
            },
            [&] { return score.setFullScoreSystemsLayout({201}); },
            [&] { return score.setTrackSystemsLayout(2, {4}); },
            [&] {
                return score.setMasterBarBeamGroups(0, 2, BeamGroups({3, 2}));
            },
            [&] { return score.setMasterBarLayoutRatios(0, {}); },
            [&] {
                return score.setMasterBarLayoutRatios(5, {1, 1});
            },
            [&] {
                return score.setMasterBarLayoutRatios(std::numeric_limits<unsigned>::max(), {1, 1});
            },
            [&] {
                return score.setBarLayoutRatios(0, 0, {1, 10.5F});
            },
            [&] { return score.setBarLayoutRatios(2, 0, {1}); },
            [&] { return score.setFermata(rich.at(0, 0), Fermata::None); },
            [&] { return score.setFermata(rich.at(1, 2), Fermata::Short); },
            [&] { return score.setFermata(rich.at(1, 99), Fermata::Short); },
            [&] { return score.editFermata(1, 2, FermataMark::at(2, Fermata::Short)); },
            [&] { return score.editFermata(1, 1, FermataMark::at(0, Fermata::Long)); },
            [&] { return score.editFermata(1, 1, FermataMark::at(5, Fermata::Long)); },
            [&] { return score.editFermata(1, 1, FermataMark::at(1, Fermata::None)); },
            [&] {
                return score.editFermata(1, 1, {1, Fermata::Long, 1001});
            },
        });
}
