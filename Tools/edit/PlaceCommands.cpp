// SPDX-License-Identifier: MIT
#include "common/Choices.h"
#include "common/Failure.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/PlaceText.h"
#include "edit/ScriptLine.h"
#include "edit/Targets.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <ostream>

namespace zarn::tool {

namespace {

constexpr double MostSteps = 1000000;

QString wordOf(CursorStep step)
{
    const auto &choices = stepChoices();
    const auto found = std::find_if(choices.begin(), choices.end(), [step](const auto &choice) {
        return choice.second == static_cast<int>(step);
    });
    return found->first;
}

bool tellCursor(EditSession &session)
{
    session.out() << "Cursor: " << cursorText(session.score().scoreCursor()).toStdString() << ".\n";
    return true;
}

// The cursor. What is asked for is tried on a copy: a line that is wrong moves nothing.

/// The number of a string as players count is another one in the library.
int libraryNumber(const ScoreCursor &cursor, const CursorMove &move)
{
    const auto staff = cursor.index().staff();
    if (move.step != CursorStep::String || staff == nullptr)
        return move.number - 1;
    return static_cast<int>(staff->tuning().stringCount()) - move.number;
}

/// How many there are where the cursor is, as players count.
int countOf(const ScoreCursor &cursor, CursorStep step)
{
    const auto end = cursor.cloneScoreCursor();
    if (!(step == CursorStep::String ? end->toFirst(step) : end->toLast(step)))
        return 0;
    const ScoreModelIndex &index = end->index();
    switch (step) {
    case CursorStep::Beat:
        return index.beatIndex() + 1;
    case CursorStep::Bar:
        return index.barIndex() + 1;
    case CursorStep::Voice:
        return static_cast<int>(index.voiceIndex()) + 1;
    case CursorStep::String:
        return static_cast<int>(index.noteString()) + 1;
    case CursorStep::Staff:
        return static_cast<int>(index.staffIndex()) + 1;
    case CursorStep::Track:
        return index.trackIndex() + 1;
    }
    return 0;
}

void apply(ScoreCursor &cursor, const CursorMove &move)
{
    const bool isThere = move.to == CursorMove::To::First ? cursor.toFirst(move.step)
        : move.to == CursorMove::To::Last                 ? cursor.toLast(move.step)
                                          : cursor.to(move.step, libraryNumber(cursor, move));
    if (isThere)
        return;
    const QString thing = wordOf(move.step);
    const int count = countOf(cursor, move.step);
    if (count == 0)
        throw LineError(move.column, QStringLiteral("there are no %1s here").arg(thing));
    if (count == 1)
        throw LineError(move.column, QStringLiteral("there is only one %1 here").arg(thing));
    throw LineError(move.column,
                    QStringLiteral("there is no %1 %2 here; they go from 1 to %3")
                        .arg(thing)
                        .arg(move.number)
                        .arg(count));
}

/// A place is found in a track, not the other way round.
int rankOf(const CursorMove &move)
{
    static constexpr CursorStep order[] = {CursorStep::Track, CursorStep::Staff,
                                           CursorStep::Voice, CursorStep::Bar,
                                           CursorStep::Beat,  CursorStep::String};
    return static_cast<int>(std::find(std::begin(order), std::end(order), move.step)
                            - std::begin(order));
}

void requireBars(EditSession &session)
{
    if (session.model().trackCount() == 0 || session.model().masterTrack()->masterBarCount() == 0)
        throw Failure("the score has no bars yet for the cursor to be in");
}

/// A copy of the cursor; while that is nowhere, one at the first beat of the track, staff and voice
/// in use.
std::unique_ptr<ScoreCursor> cursorToMove(EditSession &session)
{
    auto cursor = session.score().scoreCursor().cloneScoreCursor();
    if (cursor->isValid())
        return cursor;
    ScoreModelIndex start = indexOf(session, session.where(), {0, 0});
    if (const auto staff = start.staff(); staff && staff->isFretted())
        start.setNoteString(staff->tuning().stringCount() - 1);
    cursor->setIndex(start);
    return cursor;
}

bool moveCursor(EditSession &session, const Values &values)
{
    if (!values.has(0))
        return tellCursor(session);
    requireBars(session);
    auto moves = values.get<std::vector<CursorMove>>(0);
    std::stable_sort(moves.begin(), moves.end(), [](const CursorMove &a, const CursorMove &b) {
        return rankOf(a) < rankOf(b);
    });
    const auto there = cursorToMove(session);
    for (const CursorMove &move : moves)
        apply(*there, move);
    session.score().scoreCursor().moveToCursor(*there);
    return tellCursor(session);
}

bool step(EditSession &session, const Values &values, bool (ScoreCursor::*stepOnce)(CursorStep),
          const char *name)
{
    requireBars(session);
    const auto over = static_cast<CursorStep>(values.get(0, static_cast<int>(CursorStep::Beat)));
    const int count = values.get(1, 1);
    ScoreCursor &cursor = session.score().scoreCursor();
    const auto there = cursorToMove(session);
    for (int done = cursor.isValid() ? 0 : 1; done < count; ++done) {
        if (((*there).*stepOnce)(over))
            continue;
        const std::string which = std::string(name) + " " + wordOf(over).toStdString();
        throw Failure("there is no " + which
                      + (count == 1 ? ""
                                    : " after " + std::to_string(done) + " of the "
                                 + std::to_string(count) + " steps"));
    }
    cursor.moveToCursor(*there);
    return tellCursor(session);
}

bool next(EditSession &session, const Values &values)
{
    return step(session, values, &ScoreCursor::next, "next");
}

bool previous(EditSession &session, const Values &values)
{
    return step(session, values, &ScoreCursor::previous, "previous");
}

// The selection.

bool tellSelection(EditSession &session)
{
    const auto &selection = session.selection();
    session.out() << (selection ? "Selected: " + selectionText(*selection).toStdString()
                                : std::string("Nothing is selected"))
                  << ".\n";
    return true;
}

/// Which voices and tracks a selection takes in.
struct Reach {
    Where first;
    unsigned lastStaff = 0;
    SelectionMode mode = SelectionMode::MultiSelection;
};

/// Whole bars of all voices unless beats or a voice are named; everything for "all" alone.
Reach reachOf(EditSession &session, const SelectionValue &value)
{
    using Part = std::optional<SelectionValue::Part>;
    const auto isAll = [](const Part &part) { return part && !part->number; };
    const bool isBare = !value.track && !value.staff && !value.voice;
    const bool isEverything = isAll(value.track) || (value.isAll && isBare);
    const bool areBars = std::holds_alternative<BarRange>(value.places);
    const bool isMultiVoice =
        isEverything || isAll(value.staff) || isAll(value.voice) || (areBars && !value.voice);
    for (const Part *part : {&value.staff, &value.voice}) {
        const bool isOne = *part && (*part)->number;
        if (isOne && (isEverything || (part == &value.voice && isAll(value.staff))))
            throw LineError(
                (*part)->column,
                QStringLiteral("all %1 are selected with all their voices; leave this "
                               "out or name one")
                    .arg(isEverything ? QStringLiteral("tracks") : QStringLiteral("staves")));
    }
    const auto numberOf = [](const Part &part, unsigned otherwise) {
        return part ? part->number.value_or(0) : otherwise;
    };
    const Where here = session.where();
    Reach reach;
    reach.first.track = numberOf(value.track, here.track);
    const bool isHere = reach.first.track == here.track;
    reach.first.staff = numberOf(value.staff, isHere ? here.staff : 0);
    reach.first.voice = numberOf(value.voice, isHere ? here.voice : 0);
    reach.lastStaff = reach.first.staff;
    const auto track = session.model().track(reach.first.track);
    if (track == nullptr)
        throw Failure("the score has no tracks yet to select in");
    if (isAll(value.staff))
        reach.lastStaff = track->staffCount() - 1;
    if (isMultiVoice)
        reach.mode = reach.mode | SelectionMode::MultiVoice;
    if (isEverything)
        reach.mode = reach.mode | SelectionMode::MultiTrack;
    return reach;
}

/// The bars or beats of a selection, a beat -1 where whole bars are meant.
std::pair<ScoreModelIndex, ScoreModelIndex>
endsOf(EditSession &session, const SelectionValue &value, const Reach &reach, int column)
{
    BeatRange beats;
    if (const auto *const bars = std::get_if<BarRange>(&value.places)) {
        beats = {{bars->first, 0}, {bars->last, 0}};
    } else {
        beats = std::get<BeatRange>(value.places);
        requireBeat(session, reach.first, beats.first, column);
        requireBeat(session, reach.first, beats.last, column);
    }
    ScoreModelIndex first = indexOf(session, reach.first, beats.first);
    ScoreModelIndex last = indexOf(session, reach.first, beats.last);
    last.setStaffIndex(reach.lastStaff);
    const bool isMultiVoice = hasMode(reach.mode, SelectionMode::MultiVoice);
    if (isMultiVoice || std::holds_alternative<BarRange>(value.places)) {
        first.invalidateBeat();
        last.invalidateBeat();
    }
    return {first, last};
}

bool select(EditSession &session, const Values &values)
{
    if (!values.has(0))
        return tellSelection(session);
    const auto &value = values.get<SelectionValue>(0);
    if (value.isNone) {
        session.select(std::nullopt);
        return tellSelection(session);
    }
    const Reach reach = reachOf(session, value);
    const auto [first, last] = endsOf(session, value, reach, values.column(0));
    session.select(first == last && first.beatIndex() >= 0
                       ? ScoreModelRange(first)
                       : ScoreModelRange(first, last, reach.mode));
    return tellSelection(session);
}

} // namespace

const std::vector<Command> &placeCommands()
{
    static const Parameter unit = {QStringLiteral("UNIT"), Kind::Choice, Presence::Assumed, 0, 0,
                                   &stepChoices()};
    static const Parameter count = {QStringLiteral("COUNT"), Kind::Whole, Presence::Optional, 1,
                                    MostSteps};
    static const std::vector<Command> commands = {
        {QStringLiteral("select"),
         {{QStringLiteral("PLACES"), Kind::Selection, Presence::Optional}},
         QStringLiteral("Select bars or beats for commands to act on, or tell what is selected."),
         QString(),
         select},
        {QStringLiteral("cursor"),
         {{QStringLiteral("PLACE"), Kind::CursorMoves, Presence::Optional}},
         QStringLiteral("Put the cursor somewhere, or tell where it is."),
         QStringLiteral("ScoreCursor::to"),
         moveCursor},
        {QStringLiteral("next"),
         {unit, count},
         QStringLiteral("Move the cursor on, or down to the next string, staff and so on."),
         QStringLiteral("ScoreCursor::next"),
         next},
        {QStringLiteral("previous"),
         {unit, count},
         QStringLiteral("Move the cursor back or up."),
         QStringLiteral("ScoreCursor::previous"),
         previous},
    };
    return commands;
}

} // namespace zarn::tool
