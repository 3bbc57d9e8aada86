// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Track/ZarnTrackPlacing.h>

namespace zarn::cmd {

/// Inserts a track that was made elsewhere. Bars that it lacks are added at its end.
class ZARNCORE_EXPORT InsertTrack final : public TrackPlacing {
public:
    InsertTrack();
    ~InsertTrack() override;

    /// In front of the track `index`, or at the end. False for an index past the end, for no track,
    /// one that belongs to a score, and one that reaches past the last bar of the score.
    bool init(Score *score, unsigned index, std::shared_ptr<Track> track);
};

} // namespace zarn::cmd
