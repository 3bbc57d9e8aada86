// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

namespace zarn::cmd {

/// Says how a track is played: with a pick, with the fingers, with brushes. Sends
/// `PlayingStyleChanged`.
class ZARNCORE_EXPORT SetPlayingStyle final
    : public SetOnTrack<&Track::playingStyle, &Track::setPlayingStyle, evt::PlayingStyleChanged> {
public:
    SetPlayingStyle();
    ~SetPlayingStyle() override;

    /// False for an unknown style, and for a track that is not there.
    bool init(Score *score, unsigned track, PlayingStyle style);
};

} // namespace zarn::cmd
