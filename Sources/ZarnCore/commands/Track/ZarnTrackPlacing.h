// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnNodePlacing.h>
#include <ZarnCore/model/layout/ZarnTrackGroup.h>

#include <optional>

namespace zarn {

class Track;

/// Base of the commands that insert and remove tracks. An inserted track gets the bars that it
/// lacks at its end. The groups of tracks follow. Sends `RequestAddTracks` when a track went in,
/// `WillRemoveTrack` before and `RemoveTrack` after one went out.
class ZARNCORE_EXPORT TrackPlacing : public NodePlacing<Track> {
protected:
    using NodePlacing::NodePlacing;
    ~TrackPlacing() override;

private:
    bool canGoIn(unsigned index, const std::shared_ptr<Track> &track) const override;
    bool canGoOut(unsigned index) const override;
    void insert(unsigned index, const std::shared_ptr<Track> &track) override;
    std::shared_ptr<Track> remove(unsigned index) override;
    void announceIn() override;
    void announceOut() override;
    void settleGroups(TrackGroups found);

    std::optional<TrackGroups> _groupsBefore; ///< while the command is done
};

} // namespace zarn
