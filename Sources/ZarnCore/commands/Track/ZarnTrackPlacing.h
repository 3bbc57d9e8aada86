// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnPlacingCommand.h>

#include <memory>

namespace zarn {

class Track;

/// Base of the commands that insert and remove tracks. An inserted track gets the bars that it
/// lacks at its end. Sends `RequestAddTracks` when a track went in, `WillRemoveTrack` before and
/// `RemoveTrack` after one went out.
class ZARNCORE_EXPORT TrackPlacing : public PlacingCommand {
protected:
    using PlacingCommand::PlacingCommand;
    ~TrackPlacing() override;

    /// Remember a track that is out, or the place of one that is in, as what to place; false when
    /// it cannot be.
    bool prepareInsertion(Score *score, unsigned index, std::shared_ptr<Track> track);
    bool prepareRemoval(Score *score, unsigned index);

private:
    void putIn() override;
    void takeOut() override;
    void announceIn() override;
    void announceOut() override;
    bool canGoIn() const;

    unsigned _index = 0;
    std::shared_ptr<Track> _track; ///< while it is out of the model
};

} // namespace zarn
