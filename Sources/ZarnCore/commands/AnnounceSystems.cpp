// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/AnnounceSystems.h>

#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/events/ZarnScoreViewEvents.h>
#include <ZarnCore/events/ZarnTrackEvents.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn {

void announceSystems(ScoreBase &score, const void *sender, int track)
{
    if (track >= 0) {
        score.notify(sender, evt::TrackSystemsLayoutChanged(track));
        return;
    }
    score.notify(sender, evt::FullScoreSystemsLayoutChanged());
    score.notify(sender, evt::ScoreViewSystemLayoutChanged(0));
}

} // namespace zarn
