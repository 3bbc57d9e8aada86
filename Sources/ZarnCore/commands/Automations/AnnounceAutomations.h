// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/automations/ZarnAutomation.h>

namespace zarn {

class MasterTrack;
class ScoreBase;

/// How events of automations and effects name the master track.
constexpr int masterTrackIndex = -1;

/// Whether automations of a type drive one of the 32 parameters of channel strips and effects.
constexpr bool isParameterType(Automation::Type type) noexcept
{
    return type >= Automation::DSPParam_00 && type <= Automation::DSPParam_31;
}

/// Sends the events of automations of one type that came, went or changed between two bars, both
/// included: `MasterTrackAutomationChanged`, behind `MasteringAutomationChanged` for parameters of
/// the mastering; or for a track `TrackAutomationChanged`, behind `ChannelStripAutomationChanged`
/// for volume and panning, in front of `SoundAutomationChanged` for sounds.
void announceAutomations(ScoreBase &score, const void *sender, int track, Automation::Type type,
                         int firstBar, int lastBar);

/// The tempo at which the score starts, in quarters per minute.
double startTempo(const MasterTrack &master);

/// Sends `GlobalTempoChanged` when the two tempos differ.
void announceStartTempo(ScoreBase &score, const void *sender, double before, double after);

} // namespace zarn
