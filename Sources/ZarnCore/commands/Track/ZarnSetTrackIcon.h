// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

namespace zarn::cmd {

/// Sets the picture of a track.
class ZARNCORE_EXPORT SetTrackIcon final
    : public SetOnTrack<&Track::iconID, &Track::setIconID, evt::TrackIconChanged> {
public:
    SetTrackIcon();
    ~SetTrackIcon() override;

    /// False for a track that is not there, and for an unknown icon.
    bool init(Score *score, unsigned track, ZarnIconID icon);
};

} // namespace zarn::cmd
