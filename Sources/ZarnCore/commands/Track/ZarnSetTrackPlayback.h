// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

namespace zarn::cmd {

/// Mutes a track, lets it and others of its kind be heard alone, or frees it of either. Sends
/// `evt::TrackPlayback`.
class ZARNCORE_EXPORT SetTrackPlayback final
    : public SetOnTrack<&Track::playback, &Track::setPlayback, evt::TrackPlayback> {
public:
    SetTrackPlayback();
    ~SetTrackPlayback() override;

    /// False for an unknown value, and for a track that is not there.
    bool init(Score *score, unsigned track, zarn::TrackPlayback playback);
};

} // namespace zarn::cmd
