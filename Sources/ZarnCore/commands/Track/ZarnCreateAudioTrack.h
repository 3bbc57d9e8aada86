// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Track/ZarnAudioTrackPlacing.h>

namespace zarn::cmd {

/// Inserts a recording that plays along.
class ZARNCORE_EXPORT CreateAudioTrack final : public AudioTrackPlacing {
public:
    CreateAudioTrack();
    ~CreateAudioTrack() override;

    /// In front of the audio track `index`, or at the end. False for an index past the end, for no
    /// audio track, for one that is not possible, and for one that the score has already.
    bool init(Score *score, unsigned index, std::shared_ptr<AudioTrack> track);
};

} // namespace zarn::cmd
