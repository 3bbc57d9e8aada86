// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScore.h>

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
#include <ZarnCore/instruments/sounds/ZarnSound.h>

#include <utility>

namespace zarn {

bool Score::createTrack(unsigned index, InstrumentSet::Type type)
{
    return execute<cmd::CreateTrack>(*this, index, type);
}

bool Score::insertTrack(unsigned index, std::shared_ptr<Track> track)
{
    return execute<cmd::InsertTrack>(*this, index, std::move(track));
}

bool Score::removeTrack(unsigned index)
{
    return execute<cmd::RemoveTrack>(*this, index);
}

bool Score::setTrackName(unsigned track, const QString &name)
{
    return execute<cmd::SetTrackName>(*this, track, name);
}

bool Score::setTrackShortName(unsigned track, const QString &name)
{
    return execute<cmd::SetTrackShortName>(*this, track, name);
}

bool Score::setTrackIcon(unsigned track, ZarnIconID icon)
{
    return execute<cmd::SetTrackIcon>(*this, track, icon);
}

bool Score::setGuitarFullTuning(unsigned track, unsigned staff, const GuitarTuning &tuning,
                                unsigned capoFret, Retuning retuning)
{
    return execute<cmd::SetGuitarFullTuning>(*this, track, staff, tuning, capoFret, retuning);
}

bool Score::addTrackSound(unsigned track, const Sound &sound)
{
    return addTrackSound(track, std::make_shared<const Sound>(sound));
}

bool Score::addTrackSound(unsigned track, std::shared_ptr<const Sound> sound)
{
    return execute<cmd::AddTrackSound>(*this, track, std::move(sound));
}

bool Score::removeTrackSound(unsigned track, unsigned index)
{
    return execute<cmd::RemoveTrackSound>(*this, track, index);
}

bool Score::createAudioTrack(unsigned index, std::shared_ptr<AudioTrack> track)
{
    return execute<cmd::CreateAudioTrack>(*this, index, std::move(track));
}

bool Score::removeAudioTrack(unsigned index)
{
    return execute<cmd::RemoveAudioTrack>(*this, index);
}

} // namespace zarn
