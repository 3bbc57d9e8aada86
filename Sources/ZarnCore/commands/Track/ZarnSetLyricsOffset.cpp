// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetLyricsOffset.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn::cmd {

SetLyricsOffset::SetLyricsOffset() : LayOutLyrics(QStringLiteral("SetLyricsOffset")) { }
SetLyricsOffset::~SetLyricsOffset() = default;

bool SetLyricsOffset::init(Score *score, unsigned track, unsigned line, unsigned firstBar)
{
    ZARN_ASSERT_IN("zarn::cmd::SetLyricsOffset::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Index"), QString::number(line));
    addArg(QStringLiteral("First"), QString::number(firstBar));
    return prepare(score, track, line, firstBar);
}

std::optional<LyricLine::Layout> SetLyricsOffset::layout(const LyricLine &line) const
{
    const LyricSyllables syllables = line.syllables();
    if (syllables.empty())
        return std::nullopt;
    return line.layOut(syllables, firstBar(), 0);
}

} // namespace zarn::cmd
