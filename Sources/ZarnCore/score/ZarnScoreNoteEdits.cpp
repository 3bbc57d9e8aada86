// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScore.h>

#include <ZarnCore/commands/Beat/ZarnCreateBeat.h>
#include <ZarnCore/commands/Beat/ZarnRemoveBeats.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatDynamic.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatRhythm.h>
#include <ZarnCore/commands/Beat/ZarnWriteBeats.h>
#include <ZarnCore/commands/Execute.h>
#include <ZarnCore/commands/Note/ZarnAutomaticFingerPositioning.h>
#include <ZarnCore/commands/Note/ZarnSetMIDINote.h>
#include <ZarnCore/commands/Note/ZarnSetNoteRest.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNote.h>

namespace zarn {

bool Score::createBeat(const ScoreModelIndex &index, const RhythmValue &rhythm)
{
    return execute<cmd::CreateBeat>(*this, index, rhythm);
}

bool Score::writeBeats(unsigned track, unsigned staff, std::vector<WrittenStretch> stretches)
{
    return execute<cmd::WriteBeats>(*this, track, staff, std::move(stretches));
}

bool Score::removeBeats(const ScoreModelRange &range)
{
    return execute<cmd::RemoveBeats>(*this, range);
}

bool Score::setBeatRhythm(const ScoreModelRange &range, const RhythmValue &rhythm)
{
    return execute<cmd::SetBeatRhythm>(*this, range, rhythm);
}

bool Score::setBeatDynamic(const ScoreModelRange &range, NoteDynamic dynamic)
{
    return execute<cmd::SetBeatDynamic>(*this, range, dynamic);
}

bool Score::setStringedNote(const ScoreModelIndex &index, int string, int fret)
{
    return execute<cmd::SetStringedNote>(*this, index, string, fret);
}

bool Score::setMIDINote(const ScoreModelIndex &index, int midi)
{
    return execute<cmd::SetMIDINote>(*this, index, midi);
}

bool Score::setNoteRest(const ScoreModelRange &range)
{
    return execute<cmd::SetNoteRest>(*this, range);
}

bool Score::automaticFingerPositioning(const ScoreModelRange &range,
                                       const fingering::FingeringOptions &options,
                                       std::shared_ptr<fingering::FingeringReport> report)
{
    return execute<cmd::AutomaticFingerPositioning>(*this, range, options, std::move(report));
}

} // namespace zarn
