// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Track/ZarnTrackPlacing.h>

namespace zarn::cmd {

/// Removes a track with all that belongs to it, and keeps it for undo.
class ZARNCORE_EXPORT RemoveTrack final : public TrackPlacing {
public:
    RemoveTrack();
    ~RemoveTrack() override;

    /// False for a track that is not there.
    bool init(Score *score, unsigned index);
};

} // namespace zarn::cmd
