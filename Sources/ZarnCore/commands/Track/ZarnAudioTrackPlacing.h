// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnNodePlacing.h>

namespace zarn {

class AudioTrack;

/// Base of the commands that insert and remove audio tracks. Sends `AddAudioTrack` when one went
/// in, `RemoveAudioTrack` when one went out.
class ZARNCORE_EXPORT AudioTrackPlacing : public NodePlacing<AudioTrack> {
protected:
    using NodePlacing::NodePlacing;
    ~AudioTrackPlacing() override;

private:
    bool canGoIn(unsigned index, const std::shared_ptr<AudioTrack> &track) const override;
    bool canGoOut(unsigned index) const override;
    void insert(unsigned index, const std::shared_ptr<AudioTrack> &track) override;
    std::shared_ptr<AudioTrack> remove(unsigned index) override;
    void announceIn() override;
    void announceOut() override;
};

} // namespace zarn
