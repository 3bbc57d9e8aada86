// SPDX-License-Identifier: MIT
#include "common/Failure.h"
#include "common/Terminal.h"
#include "common/TextTable.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/ScriptLine.h"
#include "edit/Targets.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/lyrics/ZarnLyricLine.h>

#include <ostream>

namespace zarn::tool {

namespace {

constexpr double LineCount = Syllable::LineCount;

std::shared_ptr<Track> trackOf(EditSession &session, const Values &values)
{
    const auto track = session.model().track(values.where().track);
    if (!track)
        throw Failure("there is no track yet; add-track makes one");
    return track;
}

unsigned line(const Values &values, std::size_t parameter)
{
    return static_cast<unsigned>(values.get(parameter, 1)) - 1;
}

/// Says when some of the text found no notes.
void tellOfWaiting(EditSession &session, const Values &values, unsigned line)
{
    const std::string &text = trackOf(session, values)->lyricsLeftOver()[line];
    if (!text.empty())
        session.out() << "No notes are left for \"" << printable(text)
                      << "\"; lyrics-start goes on with it when there are.\n";
}

bool setLyrics(EditSession &session, const Values &values)
{
    const unsigned number = line(values, 2);
    if (!session.score().setLyrics(values.where().track, number, values.get<QString>(1),
                                   targetBar(session, values)))
        return false;
    tellOfWaiting(session, values, number);
    return true;
}

bool startLyrics(EditSession &session, const Values &values)
{
    const unsigned number = line(values, 1);
    if (LyricLine(*trackOf(session, values), number).syllables().empty())
        throw LineError(values.column(0),
                        QStringLiteral("track %1 has no lyrics in line %2; \"lyrics\" writes them")
                            .arg(values.where().track + 1)
                            .arg(number + 1));
    if (!session.score().setLyricsOffset(values.where().track, number, targetBar(session, values)))
        return false;
    tellOfWaiting(session, values, number);
    return true;
}

bool showLyrics(EditSession &session, const Values &values)
{
    const auto lines = static_cast<unsigned>(values.get<int>(0));
    if (lines > TrackSettings::AllLyrics)
        throw LineError(values.column(0), QStringLiteral("there are 5 lines of lyrics"));
    return session.score().setLyricsVisible(values.where().track, lines);
}

/// Each line as it may be typed again.
bool listLyrics(EditSession &session, const Values &values)
{
    const auto track = trackOf(session, values);
    TextTable table({{QStringLiteral("Line"), TextTable::Side::Right},
                     {QStringLiteral("Bar"), TextTable::Side::Right},
                     {QStringLiteral("Lyrics")}});
    for (unsigned i = 0; i < Syllable::LineCount; ++i) {
        const LyricLine lyrics(*track, i);
        const LyricSyllables syllables = lyrics.syllables();
        if (syllables.empty())
            continue;
        const auto bar = lyrics.firstBar();
        table.addRow({QString::number(i + 1), bar ? QString::number(*bar + 1) : QStringLiteral("-"),
                      QString::fromStdString(printable(lyricsToText(syllables)))});
    }
    session.out() << table.text(session.terminal());
    return true;
}

} // namespace

const std::vector<Command> &lyricsCommands()
{
    static const Parameter bar = {QStringLiteral("BAR"), Kind::Bar, Presence::Assumed};
    static const Parameter line = {QStringLiteral("LINE"), Kind::Whole, Presence::Optional, 1,
                                   LineCount};
    static const std::vector<Command> commands = {
        {QStringLiteral("lyrics"),
         {bar, {QStringLiteral("TEXT"), Kind::Text}, line},
         QStringLiteral("Write lyrics from a bar on: - parts syllables, _ holds them on."),
         QStringLiteral("Score::setLyrics"),
         setLyrics,
         true},
        {QStringLiteral("lyrics-start"),
         {bar, line},
         QStringLiteral("Start a line of lyrics at another bar, or lay it out again."),
         QStringLiteral("Score::setLyricsOffset"),
         startLyrics,
         true},
        {QStringLiteral("show-lyrics"),
         {{QStringLiteral("LINES"), Kind::Passes}},
         QStringLiteral("Show these lines of lyrics, such as 1,2, and hide the others."),
         QStringLiteral("Score::setLyricsVisible"),
         showLyrics,
         true},
        {QStringLiteral("list-lyrics"),
         {},
         QStringLiteral("List the lines of lyrics of a track, as they are typed."),
         QString(),
         listLyrics,
         true},
    };
    return commands;
}

} // namespace zarn::tool
