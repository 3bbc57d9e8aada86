// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>
#include <ZarnCore/events/ZarnEffectEvents.h>

namespace zarn::cmd {

/// Sets volume and panning of the master track at once.
class ZARNCORE_EXPORT SetMasterTrackVolumePan final
    : public SetOnMasterTrack<&MasterTrack::volumePan, &MasterTrack::setVolumePan,
                              evt::RequestMasterTrackChannelStripChange> {
public:
    SetMasterTrackVolumePan();
    ~SetMasterTrackVolumePan() override;

    bool init(Score *score, const ZarnVolumePan &volumePan);
};

} // namespace zarn::cmd
