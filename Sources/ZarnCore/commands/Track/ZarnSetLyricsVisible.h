// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

namespace zarn::cmd {

/// Shows or hides lines of lyrics of a track.
class ZARNCORE_EXPORT SetLyricsVisible final
    : public SetOnTrack<&Track::lyricsVisible, &Track::setLyricsVisible, evt::LyricsChanged> {
public:
    SetLyricsVisible();
    ~SetLyricsVisible() override;

    /// The lines that are shown, bit 0 the first. False for a track that is not there, and for more
    /// than `TrackSettings::AllLyrics`.
    bool init(Score *score, unsigned track, unsigned lines);
};

} // namespace zarn::cmd
