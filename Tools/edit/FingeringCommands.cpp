// SPDX-License-Identifier: MIT
#include "common/SoundingPitch.h"
#include "common/Terminal.h"
#include "common/Texts.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/ScriptLine.h"
#include "edit/Targets.h"

#include <ZarnCore/fingering/ZarnFingeringReport.h>
#include <ZarnCore/fingering/ZarnPassageReader.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>

#include <algorithm>
#include <ostream>

namespace zarn::tool {

namespace {

using fingering::FingeringProblem;

constexpr std::size_t ShownAlternatives = 3;

const Choices &givenChoices()
{
    static const Choices choices = {
        {QStringLiteral("--keep"), static_cast<int>(fingering::GivenStrings::Kept)},
        {QStringLiteral("--keep-open"), static_cast<int>(fingering::GivenStrings::KeptOpen)},
    };
    return choices;
}

const Choices &fingerChoices()
{
    static const Choices choices = {
        {QStringLiteral("--fingers"), static_cast<int>(fingering::LeftFingers::Written)},
    };
    return choices;
}

const char *reason(FingeringProblem::Kind kind)
{
    switch (kind) {
    case FingeringProblem::Kind::NotOnInstrument:
        return "is on no string";
    case FingeringProblem::Kind::NoStringLeft:
        return "finds its strings taken";
    case FingeringProblem::Kind::TooWide:
        break;
    }
    return "and what sounds with it is too wide for a hand";
}

void print(EditSession &session, const fingering::FingeringReport &report)
{
    session.out() << counted(report.noteCount, "note") << " fingered, "
                  << (report.movedCount == 0 ? std::string("none")
                                             : std::to_string(report.movedCount))
                  << " of them anew\n";
    for (const fingering::UnplayableNote &note : report.unplayable) {
        const auto track = session.model().track(note.track);
        const auto bar = track->bar(note.bar, note.staff);
        const QString pitch =
            SoundingPitch(*bar).text(Note(std::clamp(note.pitch, 0, 127)), Signs::Letters);
        session.out() << note.bar + 1 << ':' << note.beat + 1 << " in track " << note.track + 1
                      << ", voice " << note.voice + 1 << ": " << pitch.toStdString() << ' '
                      << reason(note.kind) << '\n';
    }
}

/// Raises unless there is something to play, and one of the staves that are meant has strings.
void requireStrings(EditSession &session, const ScoreModelRange &range, int column)
{
    const ScoreModel &model = *session.score().scoreModel();
    const auto spans = beatSpans(*session.score().scoreModel(), range);
    if (spans.empty())
        throw LineError(column, QStringLiteral("there are no notes here"));
    const auto hasStrings = [&model](const BeatSpan &span) {
        return fingering::canBeFingered(*model.tracks()[span.track]->staves()[span.staff]);
    };
    if (std::none_of(spans.begin(), spans.end(), hasStrings))
        throw LineError(column,
                        QStringLiteral("nothing here is played on strings; \"tuning\" gives them "
                                       "to a track"));
}

bool finger(EditSession &session, const Values &values)
{
    const ScoreModelRange range = targetBeats(session, values);
    requireStrings(session, range, values.column(0));
    fingering::FingeringOptions options;
    if (values.has(1))
        options.given = static_cast<fingering::GivenStrings>(values.get<int>(1));
    if (values.has(2))
        options.fingers = static_cast<fingering::LeftFingers>(values.get<int>(2));
    const auto report = std::make_shared<fingering::FingeringReport>();
    if (!session.score().automaticFingerPositioning(range, options, report))
        throw LineError(values.column(0), QStringLiteral("there are no notes here"));
    print(session, *report);
    return true;
}

/// "string 2 fret 5, string 3 fret 4", from the highest note down.
std::string placesText(const std::vector<fingering::Placement> &notes, int strings)
{
    std::string text;
    for (const fingering::Placement &note : notes) {
        if (note.string == fingering::Placement::None)
            continue;
        text += text.empty() ? "" : ", ";
        text += "string " + std::to_string(strings - note.string) + " fret "
            + std::to_string(note.fret);
        if (note.finger != 0)
            text += " finger " + std::to_string(note.finger);
    }
    return text;
}

bool showAlternatives(EditSession &session, const Values &values)
{
    const ScoreModelIndex place = targetBeat(session, values);
    const auto staff = place.staff();
    const auto beat = place.beat();
    const auto column = values.column(0);
    requireStrings(session, ScoreModelRange(place), column);
    if (!staff || !beat || !beat->hasNotes())
        throw LineError(column, QStringLiteral("there are no notes here"));
    const auto read = fingering::readPassage(
        *staff, beatSpans(*session.score().scoreModel(), ScoreModelRange(place)), {});
    const fingering::Passage &passage = read.passage;
    if (read.sources.empty())
        throw LineError(column, QStringLiteral("the notes here have no pitch"));
    const auto holds = [&read](const fingering::PassageEvent &event) {
        const auto note = read.sources.front().passageNote;
        return note >= event.firstNote && note < event.firstNote + event.noteCount;
    };
    const auto event = std::find_if(passage.events.begin(), passage.events.end(), holds);
    const auto found = fingering::FingeringSolver(passage).alternatives(
        static_cast<std::size_t>(event - passage.events.begin()), ShownAlternatives);
    for (std::size_t i = 0; i < found.size(); ++i)
        session.out() << i + 1 << "  "
                      << placesText(found[i].notes, passage.fretboard.stringCount()) << '\n';
    if (found.empty())
        session.out() << "no hand can play this\n";
    return true;
}

} // namespace

const std::vector<Command> &fingeringCommands()
{
    static const std::vector<Command> commands = {
        {QStringLiteral("finger"),
         {{QStringLiteral("BEATS"), Kind::Beats, Presence::Assumed},
          {QStringLiteral("GIVEN"), Kind::Choice, Presence::Optional, 0, 0, &givenChoices()},
          {QStringLiteral("FINGERS"), Kind::Choice, Presence::Optional, 0, 0, &fingerChoices()}},
         QStringLiteral("Find strings and frets, and fingers on request, anew or around those that "
                        "are given."),
         QStringLiteral("Score::automaticFingerPositioning"),
         finger,
         true},
        {QStringLiteral("alternatives"),
         {{QStringLiteral("BEAT"), Kind::Beat, Presence::Assumed}},
         QStringLiteral("List the best ways to play a beat, the easiest first."),
         QString(),
         showAlternatives,
         true},
    };
    return commands;
}

} // namespace zarn::tool
