// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Automations/AnnounceAutomations.h>

#include <ZarnCore/events/ZarnAutomationEvents.h>
#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/instruments/automations/ZarnChannelStrip.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn {

void announceAutomations(ScoreBase &score, const void *sender, int track, Automation::Type type,
                         int firstBar, int lastBar)
{
    if (track == masterTrackIndex) {
        if (isParameterType(type))
            score.notify(sender, evt::MasteringAutomationChanged(type, firstBar, lastBar));
        score.notify(sender, evt::MasterTrackAutomationChanged(type, firstBar, lastBar));
        return;
    }
    if (isChannelStripType(type))
        score.notify(sender, evt::ChannelStripAutomationChanged(track, type, firstBar, lastBar));
    score.notify(sender, evt::TrackAutomationChanged(track, type, firstBar, lastBar));
    if (type == Automation::Sound)
        score.notify(sender, evt::SoundAutomationChanged(track, firstBar, lastBar));
}

double startTempo(const MasterTrack &master)
{
    const auto *const tempo =
        dynamic_cast<const TempoAutomation *>(master.automation(Automation::Tempo, 0, 0));
    return tempo != nullptr ? static_cast<double>(tempo->quarterValue())
                            : master.quarterTempoValue();
}

void announceStartTempo(ScoreBase &score, const void *sender, double before, double after)
{
    if (before != after)
        score.notify(sender, evt::GlobalTempoChanged(before, after));
}

} // namespace zarn
