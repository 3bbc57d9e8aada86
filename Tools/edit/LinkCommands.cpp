// SPDX-License-Identifier: MIT
#include "common/Choices.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/ScriptLine.h"
#include "edit/Targets.h"

namespace zarn::tool {

namespace {

const Choices &hairpinChoices()
{
    static const Choices choices = {
        {QStringLiteral("cresc"), static_cast<int>(Hairpin::Crescendo)},
        {QStringLiteral("dim"), static_cast<int>(Hairpin::Decrescendo)},
        {QStringLiteral("swell"), static_cast<int>(Hairpin::Swell)},
        {QStringLiteral("off"), static_cast<int>(Hairpin::NoHairpin)},
    };
    return choices;
}

/// Slides out of a note, then into it, numbered behind them.
constexpr int slidesIn = 16;
constexpr int noSlide = 32;

const Choices &slideChoices()
{
    static const Choices choices = {
        {QStringLiteral("shift"), static_cast<int>(SlideOut::Shift)},
        {QStringLiteral("legato"), static_cast<int>(SlideOut::Legato)},
        {QStringLiteral("out-down"), static_cast<int>(SlideOut::Downwards)},
        {QStringLiteral("out-up"), static_cast<int>(SlideOut::Upwards)},
        {QStringLiteral("scrape-down"), static_cast<int>(SlideOut::PickScrapeDown)},
        {QStringLiteral("scrape-up"), static_cast<int>(SlideOut::PickScrapeUp)},
        {QStringLiteral("from-below"), slidesIn + static_cast<int>(SlideIn::FromBelow)},
        {QStringLiteral("from-above"), slidesIn + static_cast<int>(SlideIn::FromAbove)},
        {QStringLiteral("off"), noSlide},
    };
    return choices;
}

const Choices &graceChoices()
{
    static const Choices choices = {
        {QStringLiteral("before"), static_cast<int>(GraceType::BeforeBeat)},
        {QStringLiteral("on-beat"), static_cast<int>(GraceType::OnBeat)},
        {QStringLiteral("off"), static_cast<int>(GraceType::None)},
    };
    return choices;
}

bool tie(EditSession &session, const Values &values)
{
    const ScoreModelRange beats = targetBeats(session, values);
    const bool checked = values.get(1, true);
    const int *const string = values.option<int>(QStringLiteral("string"));
    if (!string)
        return session.score().setBeatTied(beats, checked);
    // There need be no note yet: the one that is held is written.
    ScoreModelIndex place = beats.first();
    place.setNoteString(static_cast<std::uint32_t>(*string));
    return session.score().setNoteTied(ScoreModelRange(place), checked);
}

bool tieNotes(EditSession &session, const Values &values)
{
    const bool checked = values.get(1, true);
    const bool isOfString = values.option<int>(QStringLiteral("string")) != nullptr;
    const bool isDone = isOfString
        ? session.score().setNoteTiedOnly(targetNotes(session, values), checked)
        : session.score().setBeatTiedOnly(targetBeats(session, values), checked);
    if (isDone)
        return true;
    throw LineError(values.column(0),
                    checked ? QStringLiteral("no note here is in the beat in front as well")
                            : QStringLiteral("no note here is tied"));
}

bool slur(EditSession &session, const Values &values)
{
    return session.score().setBeatLegato(targetBeats(session, values), values.get(1, true));
}

bool hairpin(EditSession &session, const Values &values)
{
    return session.score().setBeatHairpin(targetBeats(session, values),
                                          static_cast<Hairpin>(values.get<int>(1)));
}

bool hammer(EditSession &session, const Values &values)
{
    return session.score().setStringedNoteHopo(targetNotes(session, values), values.get(1, true));
}

bool slide(EditSession &session, const Values &values)
{
    const ScoreModelRange notes = targetNotes(session, values);
    const int kind = values.get<int>(1);
    if (kind == noSlide)
        return session.score().setStringedNoteSlide(notes, SlideIn::None, SlideOut::None);
    if (kind > slidesIn)
        return session.score().setStringedNoteSlide(notes, static_cast<SlideIn>(kind - slidesIn),
                                                    std::nullopt);
    return session.score().setStringedNoteSlide(notes, std::nullopt, static_cast<SlideOut>(kind));
}

bool grace(EditSession &session, const Values &values)
{
    return session.score().setBeatGraceNotes(targetBeats(session, values),
                                             static_cast<GraceType>(values.get<int>(1)));
}

bool deadSlap(EditSession &session, const Values &values)
{
    return session.score().setBeatDeadSlapped(targetBeats(session, values), values.get(1, true));
}

bool clear(EditSession &session, const Values &values)
{
    return session.score().clearBeats(targetBeats(session, values));
}

bool repeatBeat(EditSession &session, const Values &values)
{
    return session.score().copyBeatToEOB(targetBeat(session, values));
}

} // namespace

const std::vector<Command> &linkCommands()
{
    static const Parameter beats = {QStringLiteral("BEATS"), Kind::Beats, Presence::Assumed};
    static const Parameter onOff = {QStringLiteral("SWITCH"), Kind::Switch, Presence::Assumed};
    static const Parameter string = {QStringLiteral("STRING"), Kind::String};
    const auto choice = [](const char *name, const Choices &choices) {
        return Parameter{QLatin1String(name), Kind::Choice, Presence::Required, 0, 0, &choices};
    };
    static const std::vector<Command> commands = {
        {QStringLiteral("tie"),
         {beats, onOff},
         QStringLiteral("Tie beats, or one string, to the beat in front; rests are filled."),
         QStringLiteral("Score::setBeatTied"),
         tie,
         true,
         {string}},
        {QStringLiteral("tie-notes"),
         {beats, onOff},
         QStringLiteral("Tie the notes that the beat in front has too; writes none."),
         QStringLiteral("Score::setBeatTiedOnly"),
         tieNotes,
         true,
         {string}},
        {QStringLiteral("slur"),
         {beats, onOff},
         QStringLiteral("Draw a slur over beats, from one beat to the next."),
         QStringLiteral("Score::setBeatLegato"),
         slur,
         true},
        {QStringLiteral("hairpin"),
         {beats, choice("KIND", hairpinChoices())},
         QStringLiteral("Draw a crescendo, diminuendo or swell over beats, or none."),
         QStringLiteral("Score::setBeatHairpin"),
         hairpin,
         true},
        {QStringLiteral("hammer"),
         {beats, onOff},
         QStringLiteral("Hammer on or pull off from note to note of a string."),
         QStringLiteral("Score::setStringedNoteHopo"),
         hammer,
         true,
         {string}},
        {QStringLiteral("slide"),
         {beats, choice("KIND", slideChoices())},
         QStringLiteral("Slide into notes, out of them, or to the next of the string."),
         QStringLiteral("Score::setStringedNoteSlide"),
         slide,
         true,
         {string}},
        {QStringLiteral("grace"),
         {beats, choice("KIND", graceChoices())},
         QStringLiteral("Make grace notes of beats, or beats of grace notes."),
         QStringLiteral("Score::setBeatGraceNotes"),
         grace,
         true},
        {QStringLiteral("dead-slap"),
         {beats, onOff},
         QStringLiteral("Slap the dead strings in place of notes."),
         QStringLiteral("Score::setBeatDeadSlapped"),
         deadSlap,
         true},
        {QStringLiteral("clear"),
         {beats},
         QStringLiteral("Make plain rests of beats, with nothing left of what they had."),
         QStringLiteral("Score::clearBeats"),
         clear,
         true},
        {QStringLiteral("repeat-beat"),
         {{QStringLiteral("BEAT"), Kind::Beat, Presence::Assumed}},
         QStringLiteral("Repeat a beat up to the end of its bar, over what is there."),
         QStringLiteral("Score::copyBeatToEOB"),
         repeatBeat,
         true},
    };
    return commands;
}

} // namespace zarn::tool
