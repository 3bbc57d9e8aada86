// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

namespace zarn::cmd {

/// Says how much palm muting dampens the notes of a track. Sends `PalmMuteChanged`.
class ZARNCORE_EXPORT SetPalmMute final
    : public SetOnFrettedTrack<&Track::palmMuteStrength, &Track::setPalmMuteStrength,
                               evt::PalmMuteChanged> {
public:
    SetPalmMute();
    ~SetPalmMute() override;

    /// From 0 to 1. False for any other strength, and for a track that is not there or has no
    /// staff with frets.
    bool init(Score *score, unsigned track, float strength);
};

} // namespace zarn::cmd
