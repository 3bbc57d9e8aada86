// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScoreLinkOperations.h>

#include <ZarnCore/commands/Beat/ZarnSetBeatHairpin.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatLegato.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatTied.h>
#include <ZarnCore/commands/Beat/deprecated/ZarnSetBeatTied.h>
#include <ZarnCore/commands/Execute.h>
#include <ZarnCore/commands/Note/ZarnSetNoteTied.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteHopo.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteSlide.h>
#include <ZarnCore/commands/Note/deprecated/ZarnSetNoteTied.h>

namespace zarn {

bool ScoreLinkOperations::setBeatTied(const ScoreModelRange &range, bool checked)
{
    return execute<cmd::SetBeatTied>(*this, range, checked);
}

bool ScoreLinkOperations::setNoteTied(const ScoreModelRange &range, bool checked)
{
    return execute<cmd::SetNoteTied>(*this, range, checked);
}

bool ScoreLinkOperations::setBeatTiedOnly(const ScoreModelRange &range, bool checked)
{
    return execute<cmd::deprecated::SetBeatTied>(*this, range, checked);
}

bool ScoreLinkOperations::setNoteTiedOnly(const ScoreModelRange &range, bool checked)
{
    return execute<cmd::deprecated::SetNoteTied>(*this, range, checked);
}

bool ScoreLinkOperations::setBeatLegato(const ScoreModelRange &range, bool checked)
{
    return execute<cmd::SetBeatLegato>(*this, range, checked);
}

bool ScoreLinkOperations::setBeatHairpin(const ScoreModelRange &range, Hairpin hairpin)
{
    return execute<cmd::SetBeatHairpin>(*this, range, hairpin);
}

bool ScoreLinkOperations::setStringedNoteHopo(const ScoreModelRange &range, bool checked)
{
    return execute<cmd::SetStringedNoteHopo>(*this, range, checked);
}

bool ScoreLinkOperations::setStringedNoteSlide(const ScoreModelRange &range,
                                               std::optional<SlideIn> in,
                                               std::optional<SlideOut> out)
{
    return execute<cmd::SetStringedNoteSlide>(*this, range, in, out);
}

} // namespace zarn
