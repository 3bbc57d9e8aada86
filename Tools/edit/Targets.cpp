// SPDX-License-Identifier: MIT
#include "edit/Targets.h"

#include "edit/EditSession.h"
#include "edit/ScriptLine.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>

namespace zarn::tool {

namespace {

/// How many beats the voice has where a command works.
unsigned beatCount(EditSession &session, const Where &where, unsigned bar)
{
    const auto track = session.model().track(where.track);
    const auto held = track ? track->bar(bar, where.staff) : nullptr;
    const auto voice = held ? held->voice(where.voice) : nullptr;
    return voice ? voice->beatCount() : 0;
}

/// What is selected, when a command may act on it.
const std::optional<ScoreModelRange> &targetSelection(EditSession &session, const Values &values)
{
    const auto &selection = session.selection();
    if (!selection)
        return selection;
    const int column = values.column(0);
    if (values.namesWhere())
        throw LineError(
            column,
            QStringLiteral("what is selected has a track, staff and voice of its own; leave "
                           "t2 and the like out, or say which bars or beats"));
    for (const ScoreModelIndex &end : {selection->first(), selection->second()}) {
        if (!end.isBarValid() || (end.beatIndex() >= 0 && !end.isBeatValid()))
            throw LineError(
                column,
                QStringLiteral("what was selected is not all there any more: %1 is gone; "
                               "select again")
                    .arg(end.beatIndex() < 0 ? QStringLiteral("bar %1").arg(end.barIndex() + 1)
                                             : QStringLiteral("%1:%2")
                                                   .arg(end.barIndex() + 1)
                                                   .arg(end.beatIndex() + 1)));
    }
    return selection;
}

} // namespace

BeatPlace cursorPlace(EditSession &session)
{
    const ScoreModelIndex &index = session.score().scoreCursor().index();
    return {static_cast<unsigned>(index.barIndex()),
            static_cast<unsigned>(std::max(index.beatIndex(), 0))};
}

ScoreModelIndex indexOf(EditSession &session, const Where &where, const BeatPlace &place)
{
    return ScoreModelIndex(session.score().scoreModel().get(), static_cast<int>(where.track),
                           static_cast<int>(place.bar), static_cast<int>(place.beat), where.voice,
                           where.staff);
}

void requireBeat(EditSession &session, const Where &where, const BeatPlace &place, int column,
                 Allowed allowed)
{
    const unsigned count = beatCount(session, where, place.bar);
    const bool isEnd = allowed == Allowed::BeatsAndEnd && place.beat == count;
    if (place.beat < count || isEnd)
        return;
    const QString why = QStringLiteral("voice %1 of bar %2 has no beat %3; it ")
                            .arg(where.voice + 1)
                            .arg(place.bar + 1)
                            .arg(place.beat + 1);
    throw LineError(column,
                    why
                        + (count == 0 ? QStringLiteral("is empty, write or add-beat begins it")
                                      : QStringLiteral("has %1").arg(count)));
}

ScoreModelIndex targetBeat(EditSession &session, const Values &values, Allowed allowed)
{
    const BeatPlace place = values.has(0) ? values.get<BeatPlace>(0) : cursorPlace(session);
    requireBeat(session, values.where(), place, values.column(0), allowed);
    return indexOf(session, values.where(), place);
}

ScoreModelRange targetBeats(EditSession &session, const Values &values)
{
    BeatRange beats;
    if (values.has(0)) {
        beats = values.get<BeatRange>(0);
    } else if (const auto &selection = targetSelection(session, values)) {
        return *selection;
    } else {
        beats.first = beats.last = cursorPlace(session);
    }
    requireBeat(session, values.where(), beats.first, values.column(0));
    requireBeat(session, values.where(), beats.last, values.column(0));
    const ScoreModelIndex first = indexOf(session, values.where(), beats.first);
    const ScoreModelIndex last = indexOf(session, values.where(), beats.last);
    return first == last ? ScoreModelRange(first)
                         : ScoreModelRange(first, last, SelectionMode::MultiSelection);
}

ScoreModelRange targetNotes(EditSession &session, const Values &values)
{
    ScoreModelRange range = targetBeats(session, values);
    const bool isOnePlace = !range.isMultiSelection() && !range.isMultiVoice();
    const QString option = QStringLiteral("string");
    if (const int *const string = values.option<int>(option)) {
        if (range.first() != range.second() || range.isMultiVoice())
            throw LineError(values.optionColumn(option),
                            QStringLiteral("a string is named for one beat"));
        range.mutableFirst().setNoteString(static_cast<std::uint32_t>(*string));
        if (range.first().note() == nullptr)
            throw LineError(values.optionColumn(option),
                            QStringLiteral("there is no note on this string"));
        return ScoreModelRange(range.first());
    }
    if (isOnePlace && !values.has(0)) {
        const ScoreModelIndex &cursor = session.score().scoreCursor().index();
        const auto beat = range.first().beat();
        const auto string = cursor.noteString();
        if (string < GuitarTuning::maximumStringCount && beat != nullptr
            && beat->noteOnString(static_cast<int>(string)) != nullptr) {
            range.mutableFirst().setNoteString(string);
            return ScoreModelRange(range.first());
        }
    }
    range.setMultiSelection(true);
    return range;
}

unsigned targetBar(EditSession &session, const Values &values)
{
    return values.has(0) ? static_cast<unsigned>(values.get<int>(0)) : cursorPlace(session).bar;
}

BarRange targetBars(EditSession &session, const Values &values)
{
    if (values.has(0))
        return values.get<BarRange>(0);
    if (const auto &selection = targetSelection(session, values)) {
        const auto bars =
            std::minmax({selection->first().barIndex(), selection->second().barIndex()});
        return {static_cast<unsigned>(bars.first), static_cast<unsigned>(bars.second)};
    }
    const unsigned bar = cursorPlace(session).bar;
    return {bar, bar};
}

Where targetStaff(EditSession &session, const Values &values)
{
    const auto &selection = session.selection();
    if (values.has(0) || !selection)
        return values.where();
    const ScoreModelIndex &first = selection->first();
    if (selection->isMultiTrack() || first.staffIndex() != selection->second().staffIndex())
        throw LineError(values.column(0),
                        QStringLiteral("more than one staff is selected; select bars of one"));
    return {static_cast<unsigned>(first.trackIndex()), first.staffIndex(), first.voiceIndex()};
}

int targetString(EditSession &session, const Values &values, std::size_t parameter)
{
    if (values.has(parameter))
        return values.get<int>(parameter);
    const auto track = session.model().track(values.where().track);
    const auto staff = track ? track->staff(values.where().staff) : nullptr;
    const unsigned count = staff ? staff->tuning().stringCount() : 0;
    const std::uint32_t string = session.score().scoreCursor().index().noteString();
    if (string < count)
        return static_cast<int>(string);
    throw LineError(values.column(parameter),
                    count == 0
                        ? QStringLiteral("track %1 has no strings").arg(values.where().track + 1)
                        : QStringLiteral("the cursor is on no string of track %1; name one, 1 "
                                         "being the highest")
                              .arg(values.where().track + 1));
}

} // namespace zarn::tool
