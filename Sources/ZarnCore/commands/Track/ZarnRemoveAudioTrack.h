// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Track/ZarnAudioTrackPlacing.h>

namespace zarn::cmd {

/// Removes a recording, and keeps it for undo.
class ZARNCORE_EXPORT RemoveAudioTrack final : public AudioTrackPlacing {
public:
    RemoveAudioTrack();
    ~RemoveAudioTrack() override;

    /// False for an audio track that is not there.
    bool init(Score *score, unsigned index);
};

} // namespace zarn::cmd
