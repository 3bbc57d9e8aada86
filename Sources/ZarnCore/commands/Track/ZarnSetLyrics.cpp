// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetLyrics.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn::cmd {

SetLyrics::SetLyrics() : LayOutLyrics(QStringLiteral("SetLyrics")) { }
SetLyrics::~SetLyrics() = default;

bool SetLyrics::init(Score *score, unsigned track, unsigned line, const QString &text,
                     unsigned firstBar)
{
    ZARN_ASSERT_IN("zarn::cmd::SetLyrics::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Index"), QString::number(line));
    addArg(QStringLiteral("Text"), text);
    addArg(QStringLiteral("First"), QString::number(firstBar));
    _syllables = lyricsFromText(text.toStdString());
    return prepare(score, track, line, firstBar);
}

std::optional<LyricLine::Layout> SetLyrics::layout(const LyricLine &line) const
{
    return line.layOut(_syllables, firstBar(), firstBar());
}

} // namespace zarn::cmd
