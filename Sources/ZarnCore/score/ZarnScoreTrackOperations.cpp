// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScoreTrackOperations.h>

#include <ZarnCore/commands/Execute.h>
#include <ZarnCore/commands/Track/ZarnAddTrackSound.h>
#include <ZarnCore/commands/Track/ZarnCreateAudioTrack.h>
#include <ZarnCore/commands/Track/ZarnCreateTrack.h>
#include <ZarnCore/commands/Track/ZarnInsertTrack.h>
#include <ZarnCore/commands/Track/ZarnRemoveAudioTrack.h>
#include <ZarnCore/commands/Track/ZarnRemoveTrack.h>
#include <ZarnCore/commands/Track/ZarnRemoveTrackSound.h>
#include <ZarnCore/commands/Track/ZarnSetGuitarFullTuning.h>
#include <ZarnCore/commands/Track/ZarnSetTrackIcon.h>
#include <ZarnCore/commands/Track/ZarnSetTrackName.h>
#include <ZarnCore/commands/Track/ZarnSetTrackShortName.h>
#include <ZarnCore/commands/Track/ZarnSetTrackTranspositionOffset.h>
#include <ZarnCore/commands/Track/ZarnTransposeAllTracks.h>
#include <ZarnCore/commands/Track/ZarnTransposeTrack.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>

#include <utility>

namespace zarn {

bool ScoreTrackOperations::createTrack(unsigned index, InstrumentSet::Type type)
{
    return execute<cmd::CreateTrack>(*this, index, type);
}

bool ScoreTrackOperations::insertTrack(unsigned index, std::shared_ptr<Track> track)
{
    return execute<cmd::InsertTrack>(*this, index, std::move(track));
}

bool ScoreTrackOperations::removeTrack(unsigned index)
{
    return execute<cmd::RemoveTrack>(*this, index);
}

bool ScoreTrackOperations::setTrackName(unsigned track, const QString &name)
{
    return execute<cmd::SetTrackName>(*this, track, name);
}

bool ScoreTrackOperations::setTrackShortName(unsigned track, const QString &name)
{
    return execute<cmd::SetTrackShortName>(*this, track, name);
}

bool ScoreTrackOperations::setTrackIcon(unsigned track, ZarnIconID icon)
{
    return execute<cmd::SetTrackIcon>(*this, track, icon);
}

bool ScoreTrackOperations::setGuitarFullTuning(unsigned track, unsigned staff,
                                               const GuitarTuning &tuning, unsigned capoFret,
                                               Retuning retuning)
{
    return execute<cmd::SetGuitarFullTuning>(*this, track, staff, tuning, capoFret, retuning);
}

bool ScoreTrackOperations::setTrackTranspositionOffset(unsigned track, int semitones)
{
    return execute<cmd::SetTrackTranspositionOffset>(*this, track, semitones);
}

bool ScoreTrackOperations::transposeTrack(unsigned track, int semitones, Refingering refingering)
{
    return execute<cmd::TransposeTrack>(*this, track, semitones, refingering);
}

bool ScoreTrackOperations::transposeAllTracks(int semitones, bool areKeysMoved)
{
    return execute<cmd::TransposeAllTracks>(*this, semitones, areKeysMoved);
}

bool ScoreTrackOperations::addTrackSound(unsigned track, const Sound &sound)
{
    return addTrackSound(track, std::make_shared<const Sound>(sound));
}

bool ScoreTrackOperations::addTrackSound(unsigned track, std::shared_ptr<const Sound> sound)
{
    return execute<cmd::AddTrackSound>(*this, track, std::move(sound));
}

bool ScoreTrackOperations::removeTrackSound(unsigned track, unsigned index)
{
    return execute<cmd::RemoveTrackSound>(*this, track, index);
}

bool ScoreTrackOperations::createAudioTrack(unsigned index, std::shared_ptr<AudioTrack> track)
{
    return execute<cmd::CreateAudioTrack>(*this, index, std::move(track));
}

bool ScoreTrackOperations::removeAudioTrack(unsigned index)
{
    return execute<cmd::RemoveAudioTrack>(*this, index);
}

} // namespace zarn
