// SPDX-License-Identifier: MIT
#include "common/Choices.h"
#include "common/Documents.h"
#include "common/Failure.h"
#include "common/Problems.h"
#include "common/Terminal.h"
#include "common/Texts.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/PlaceReader.h"
#include "edit/ScriptLine.h"
#include "edit/Targets.h"

#include <ZarnCore/commands/Bar/ZarnPasteBarRange.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>

#include <algorithm>
#include <ostream>
#include <utility>

namespace zarn::tool {

namespace {

constexpr double MostTimes = cmd::PasteBarRange::MostTimes;
constexpr double MostVoices = Bar::MaxVoices;

QString toOption()
{
    return QStringLiteral("TO");
}
QString fromOption()
{
    return QStringLiteral("FROM");
}
QString timesOption()
{
    return QStringLiteral("TIMES");
}

const Choices &modeChoices()
{
    static const Choices choices = {
        {QStringLiteral("--replace"), static_cast<int>(PasteMode::Replace)},
        {QStringLiteral("--merge"), static_cast<int>(PasteMode::Merge)},
        {QStringLiteral("--insert"), static_cast<int>(PasteMode::Insert)},
    };
    return choices;
}

/// Whole bars are selected, with all that is in them.
bool areBars(const ScoreModelRange &range)
{
    return range.isMultiVoice() || range.isMultiTrack();
}

/// The bars of a line, or of the selection: of one staff, of those that are selected, or with
/// nothing said of all tracks.
ScoreModelRange barsOf(EditSession &session, const Values &values)
{
    if (!values.has(0) && session.selection())
        return *session.selection();
    const BarRange bars = targetBars(session, values);
    const Where &where = values.where();
    const SelectionMode mode = SelectionMode::MultiSelection | SelectionMode::MultiVoice
        | (values.namesWhere() ? SelectionMode::None : SelectionMode::MultiTrack);
    const auto end = [&](unsigned bar) {
        return ScoreModelIndex(session.score().scoreModel().get(), static_cast<int>(where.track),
                               static_cast<int>(bar), -1, 0, where.staff);
    };
    return {end(bars.first), end(bars.last), mode};
}

Clip take(EditSession &session, const ScoreModelRange &range, const Values &values)
{
    ScoreModel &model = *session.score().scoreModel();
    Clip clip = areBars(range) ? copyOfBars(model, range) : copyOfBeats(model, range);
    if (clip.isEmpty())
        throw LineError(values.column(0), QStringLiteral("there is nothing here to copy"));
    if (const QString *const path = values.option<QString>(toOption()))
        saveClip(clip, path->toStdString(), session.terminal());
    session.setClipboard(clip);
    const bool isBars = clip.kind == Clip::Kind::Bars;
    const unsigned count = isBars ? clip.model->masterTrack()->masterBarCount() : range.beatCount();
    session.out() << counted(count, isBars ? "bar" : "beat") << " copied.\n";
    return clip;
}

bool copy(EditSession &session, const Values &values)
{
    take(session, targetBeats(session, values), values);
    return true;
}

bool copyBars(EditSession &session, const Values &values)
{
    take(session, barsOf(session, values), values);
    return true;
}

/// Bars of all tracks go; whatever else is cut leaves rests.
bool cut(EditSession &session, const Values &values)
{
    const ScoreModelRange range = targetBeats(session, values);
    const Clip clip = take(session, range, values);
    if (!clip.hasColumns)
        return session.score().setNoteRest(range);
    const auto bars = std::minmax({range.first().barIndex(), range.second().barIndex()});
    return session.score().removeBarRange(static_cast<unsigned>(bars.first),
                                          static_cast<unsigned>(bars.second));
}

/// A bar such as 5 or a beat such as 5:2, else the place of the cursor.
BeatPlace pastePlace(EditSession &session, const Values &values)
{
    if (!values.has(0))
        return cursorPlace(session);
    const ReadingContext context{&session.model(), values.where()};
    const Word word{values.get<QString>(0), values.column(0)};
    if (word.text.contains(QLatin1Char(':')))
        return std::get<BeatPlace>(*readNewBeat({}, word, context));
    return {static_cast<unsigned>(std::get<int>(*readBarGap({}, word, context))), 0};
}

bool paste(EditSession &session, const Values &values)
{
    const QString *const path = values.option<QString>(fromOption());
    const Clip clip =
        path != nullptr ? openClip(path->toStdString(), session.terminal()) : session.clipboard();
    if (clip.isEmpty())
        throw Failure(path != nullptr ? path->toStdString() + ": there is no music to paste"
                                      : "nothing has been copied yet");
    const BeatPlace place = pastePlace(session, values);
    const int *const given = values.option<int>(timesOption());
    const auto times = static_cast<unsigned>(given != nullptr ? *given : 1);
    const bool isBars = clip.kind == Clip::Kind::Bars;
    // What is usual: bars go between others, beats over what is there.
    const auto mode = static_cast<PasteMode>(
        values.get(1, static_cast<int>(isBars ? PasteMode::Insert : PasteMode::Replace)));
    if (isBars && mode == PasteMode::Merge)
        throw LineError(values.column(1),
                        QStringLiteral("bars can be inserted or replace others; "
                                       "beats can be merged"));
    const Where &where = values.where();
    const unsigned before = session.model().masterTrack()->masterBarCount();
    const bool isDone = isBars
        ? session.score().pasteBarRange(clip, place.bar, clip.hasColumns ? 0 : where.track, times,
                                        mode)
        : session.score().pasteBeatRange(clip, indexOf(session, where, place), times, mode);
    const unsigned now = session.model().masterTrack()->masterBarCount();
    if (isDone && now > before)
        session.out() << counted(now - before, "bar") << " added: the score has "
                      << counted(now, "bar") << " now.\n";
    return isDone;
}

/// The whole score gives way to a document, which can be undone as anything else.
bool replaceScore(EditSession &session, const Values &values)
{
    const std::string path = values.get<QString>(0).toStdString();
    if (isStandardStream(path))
        throw LineError(values.column(0),
                        QStringLiteral("the lines of this session may come from standard input; "
                                       "name a file"));
    const OpenedDocument document = openDocument(path, session.terminal());
    warnOfProblems(document);
    return session.score().replaceScore(document.model);
}

bool arrange(EditSession &session, const Values &values)
{
    const BarRange bars = targetBars(session, values);
    return session.score().arrangeBars(bars.first, bars.last);
}

bool completeBars(EditSession &session, const Values &values)
{
    return session.score().completeReduceBarsWithRests(barsOf(session, values));
}

/// Puts the music of the bar in front of a column into it, in all staves.
bool repeatColumn(EditSession &session, unsigned bar)
{
    ScoreModel &model = *session.score().scoreModel();
    BarColumns columns;
    columns.masterBars.push_back(model.masterTrack()->masterBars()[bar]->clone());
    for (const auto &track : model.tracks()) {
        Track::BarBlocks blocks;
        for (const auto &staff : track->staves())
            blocks.push_back({staff->bars()[bar - 1]->clone()});
        columns.bars.push_back(std::move(blocks));
    }
    return session.score().modifyBarRangeAllTracks(bar, bar, std::move(columns));
}

/// Of all tracks, or of the staff that the line names. Bar by bar, so that nothing leads from one
/// to the next that the bar in front had led elsewhere.
bool repeatBar(EditSession &session, const Values &values)
{
    const BarRange bars = targetBars(session, values);
    ScoreModel &model = *session.score().scoreModel();
    if (bars.first == 0)
        throw LineError(values.column(0), QStringLiteral("there is no bar in front of bar 1"));
    const auto &masterBars = model.masterTrack()->masterBars();
    for (unsigned bar = bars.first; bar <= bars.last; ++bar)
        if (masterBars[bar]->length() != masterBars[bars.first - 1]->length())
            throw LineError(
                values.column(0),
                QStringLiteral("bar %1 is not as long as bar %2").arg(bar + 1).arg(bars.first));
    const Where &where = values.where();
    Transaction step(&session.score(), QStringLiteral("RepeatBar"));
    for (unsigned bar = bars.first; bar <= bars.last; ++bar) {
        const auto staff =
            values.namesWhere() ? model.track(where.track)->staff(where.staff) : nullptr;
        const bool isDone = staff ? session.score().modifyBarRange(
                                where.track, where.staff, bar, {staff->bars()[bar - 1]->clone()})
                                  : repeatColumn(session, bar);
        if (!isDone)
            return false;
    }
    step.commit();
    return true;
}

bool moveVoice(EditSession &session, const Values &values)
{
    return session.score().moveVoice(targetBeats(session, values),
                                     static_cast<unsigned>(values.get<int>(1) - 1));
}

bool swapVoices(EditSession &session, const Values &values)
{
    return session.score().swapVoices(barsOf(session, values),
                                      static_cast<unsigned>(values.get<int>(1) - 1),
                                      static_cast<unsigned>(values.get<int>(2) - 1));
}

} // namespace

const std::vector<Command> &structureCommands()
{
    static const Parameter beats = {QStringLiteral("BEATS"), Kind::Beats, Presence::Assumed};
    static const Parameter bars = {QStringLiteral("BARS"), Kind::Bars, Presence::Assumed};
    static const Parameter to = {toOption(), Kind::Text, Presence::Optional};
    const auto voice = [](const char *name) {
        return Parameter{QLatin1String(name), Kind::Whole, Presence::Required, 1, MostVoices};
    };
    static const std::vector<Command> commands = {
        {QStringLiteral("copy"),
         {beats},
         QStringLiteral("Copy beats, or the bars that are selected whole."),
         QString(),
         copy,
         true,
         {to}},
        {QStringLiteral("copy-bars"),
         {bars},
         QStringLiteral("Copy bars of all tracks, or with t2 of one."),
         QString(),
         copyBars,
         true,
         {to}},
        {QStringLiteral("cut"),
         {beats},
         QStringLiteral("Copy and leave rests; bars of all tracks are removed."),
         QStringLiteral("Score::setNoteRest"),
         cut,
         true,
         {to}},
        {QStringLiteral("paste"),
         {{QStringLiteral("PLACE"), Kind::Text, Presence::Optional},
          {QStringLiteral("MODE"), Kind::Choice, Presence::Optional, 0, 0, &modeChoices()}},
         QStringLiteral("Paste at a bar such as 5 or a beat such as 5:2."),
         QStringLiteral("Score::pasteBarRange, Score::pasteBeatRange"),
         paste,
         true,
         {{timesOption(), Kind::Whole, Presence::Optional, 1, MostTimes},
          {fromOption(), Kind::Text, Presence::Optional}}},
        {QStringLiteral("replace"),
         {{QStringLiteral("FILE"), Kind::Text}},
         QStringLiteral("Put another document in the place of the whole score."),
         QStringLiteral("Score::replaceScore"),
         replaceScore},
        {QStringLiteral("arrange"),
         {bars},
         QStringLiteral("Bar the music anew, after a change of meter."),
         QStringLiteral("Score::arrangeBars"),
         arrange},
        {QStringLiteral("complete-bars"),
         {bars},
         QStringLiteral("Fill bars up with rests, or take rests off those that are too long."),
         QStringLiteral("Score::completeReduceBarsWithRests"),
         completeBars,
         true},
        {QStringLiteral("repeat-bar"),
         {bars},
         QStringLiteral(
             "Play the bar in front once more in bars, in all tracks or with t2 in one."),
         QStringLiteral("Score::modifyBarRangeAllTracks"),
         repeatBar,
         true},
        {QStringLiteral("move-voice"),
         {beats, voice("VOICE")},
         QStringLiteral("Move beats to another voice, at the same time."),
         QStringLiteral("Score::moveVoice"),
         moveVoice,
         true},
        {QStringLiteral("swap-voices"),
         {bars, voice("VOICE"), voice("OTHER")},
         QStringLiteral("Exchange two voices of bars."),
         QStringLiteral("Score::swapVoices"),
         swapVoices,
         true},
    };
    return commands;
}

} // namespace zarn::tool
