// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Track/ZarnLayOutLyrics.h>

namespace zarn::cmd {

/// Starts a line of lyrics at another bar: its syllables are laid out anew in their order, with the
/// notes that each is held over, and what has been waiting for notes goes on behind them.
class ZARNCORE_EXPORT SetLyricsOffset final : public LayOutLyrics {
public:
    SetLyricsOffset();
    ~SetLyricsOffset() override;

    /// Lines are counted from 0 to 4. False for a track, a line or a bar that is not there, and for
    /// a line without syllables.
    bool init(Score *score, unsigned track, unsigned line, unsigned firstBar);

private:
    std::optional<LyricLine::Layout> layout(const LyricLine &line) const override;
};

} // namespace zarn::cmd
