// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Track/ZarnLayOutLyrics.h>

namespace zarn::cmd {

/// Writes a line of lyrics under a track from a bar on, in place of what the line has there; see
/// `lyricsFromText` for what is typed, and `LyricLine` for the notes that get it.
class ZARNCORE_EXPORT SetLyrics final : public LayOutLyrics {
public:
    SetLyrics();
    ~SetLyrics() override;

    /// Lines are counted from 0 to 4; an empty text takes the line away from the bar on. False for
    /// a track, a line or a bar that is not there.
    bool init(Score *score, unsigned track, unsigned line, const QString &text, unsigned firstBar);

private:
    std::optional<LyricLine::Layout> layout(const LyricLine &line) const override;

    LyricSyllables _syllables;
};

} // namespace zarn::cmd
