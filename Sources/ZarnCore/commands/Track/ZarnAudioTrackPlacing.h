// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnPlacingCommand.h>

#include <memory>

namespace zarn {

class AudioTrack;

/// Base of the commands that insert and remove audio tracks. Sends `AddAudioTrack` when one went
/// in, `RemoveAudioTrack` when one went out.
class ZARNCORE_EXPORT AudioTrackPlacing : public PlacingCommand {
protected:
    using PlacingCommand::PlacingCommand;
    ~AudioTrackPlacing() override;

    /// Remember an audio track that is out, or the place of one that is in, as what to place;
    /// false when it cannot be.
    bool prepareInsertion(Score *score, unsigned index, std::shared_ptr<AudioTrack> track);
    bool prepareRemoval(Score *score, unsigned index);

private:
    void putIn() override;
    void takeOut() override;
    void announceIn() override;
    void announceOut() override;
    bool canGoIn() const;
    bool canGoOut() const;

    unsigned _index = 0;
    std::shared_ptr<AudioTrack> _track; ///< while it is out of the model
};

} // namespace zarn
