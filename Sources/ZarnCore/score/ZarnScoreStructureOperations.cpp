// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScoreStructureOperations.h>

#include <ZarnCore/commands/Bar/ZarnArrangeBars.h>
#include <ZarnCore/commands/Bar/ZarnCompleteReduceBarsWithRests.h>
#include <ZarnCore/commands/Bar/ZarnModifyBarRange.h>
#include <ZarnCore/commands/Bar/ZarnModifyBarRangeAllTracks.h>
#include <ZarnCore/commands/Bar/ZarnMoveVoice.h>
#include <ZarnCore/commands/Bar/ZarnPasteBarRange.h>
#include <ZarnCore/commands/Bar/ZarnSwapVoices.h>
#include <ZarnCore/commands/Beat/ZarnPasteBeatRange.h>
#include <ZarnCore/commands/Execute.h>

#include <utility>

namespace zarn {

bool ScoreStructureOperations::modifyBarRange(unsigned track, unsigned staff, unsigned first,
                                              Staff::Bars bars)
{
    return execute<cmd::ModifyBarRange>(*this, track, staff, first, std::move(bars));
}

bool ScoreStructureOperations::modifyBarRangeAllTracks(unsigned first, unsigned last,
                                                       BarColumns columns)
{
    return execute<cmd::ModifyBarRangeAllTracks>(*this, first, last, std::move(columns));
}

bool ScoreStructureOperations::swapVoices(const ScoreModelRange &range, unsigned voice,
                                          unsigned other)
{
    return execute<cmd::SwapVoices>(*this, range, voice, other);
}

bool ScoreStructureOperations::moveVoice(const ScoreModelRange &range, unsigned voice)
{
    return execute<cmd::MoveVoice>(*this, range, voice);
}

bool ScoreStructureOperations::completeReduceBarsWithRests(const ScoreModelRange &range)
{
    return execute<cmd::CompleteReduceBarsWithRests>(*this, range);
}

bool ScoreStructureOperations::arrangeBars(unsigned first, unsigned last)
{
    return execute<cmd::ArrangeBars>(*this, first, last);
}

bool ScoreStructureOperations::pasteBarRange(const Clip &clip, unsigned bar, unsigned firstTrack,
                                             unsigned times, PasteMode mode)
{
    return execute<cmd::PasteBarRange>(*this, clip, bar, firstTrack, times, mode);
}

bool ScoreStructureOperations::pasteBeatRange(const Clip &clip, const ScoreModelIndex &place,
                                              unsigned times, PasteMode mode)
{
    return execute<cmd::PasteBeatRange>(*this, clip, place, times, mode);
}

} // namespace zarn
