// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScoreLayoutOperations.h>

#include <ZarnCore/commands/Bar/ZarnSetBarLayoutRatios.h>
#include <ZarnCore/commands/Execute.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarLayoutRatios.h>
#include <ZarnCore/commands/Score/ZarnSetAutoLayout.h>
#include <ZarnCore/commands/Score/ZarnSetFixedLayout.h>
#include <ZarnCore/commands/Score/ZarnSetFullScoreSystemsLayout.h>
#include <ZarnCore/commands/Score/ZarnSetLayout.h>
#include <ZarnCore/commands/Score/ZarnSetMultiRest.h>
#include <ZarnCore/commands/Score/ZarnSetPageSetup.h>
#include <ZarnCore/commands/Track/ZarnSetTrackSystemsLayout.h>

namespace zarn {

bool ScoreLayoutOperations::setLayout(unsigned view, ViewLayout layout)
{
    return execute<cmd::SetLayout>(*this, view, layout);
}

bool ScoreLayoutOperations::setPageSetup(const PageSetup &setup)
{
    return execute<cmd::SetPageSetup>(*this, setup);
}

bool ScoreLayoutOperations::setMultiRest(unsigned view, bool checked)
{
    return execute<cmd::SetMultiRest>(*this, view, checked);
}

bool ScoreLayoutOperations::setAutoLayout(int track)
{
    return execute<cmd::SetAutoLayout>(*this, track);
}

bool ScoreLayoutOperations::setFixedLayout(int track, unsigned bars)
{
    return execute<cmd::SetFixedLayout>(*this, track, bars);
}

bool ScoreLayoutOperations::setFullScoreSystemsLayout(const std::vector<int> &systems)
{
    return execute<cmd::SetFullScoreSystemsLayout>(*this, systems);
}

bool ScoreLayoutOperations::setTrackSystemsLayout(unsigned track, const std::vector<int> &systems)
{
    return execute<cmd::SetTrackSystemsLayout>(*this, track, systems);
}

bool ScoreLayoutOperations::setMasterBarLayoutRatios(unsigned first,
                                                     const std::vector<float> &ratios)
{
    return execute<cmd::SetMasterBarLayoutRatios>(*this, first, ratios);
}

bool ScoreLayoutOperations::setBarLayoutRatios(unsigned track, unsigned first,
                                               const std::vector<float> &ratios)
{
    return execute<cmd::SetBarLayoutRatios>(*this, track, first, ratios);
}

} // namespace zarn
