// SPDX-License-Identifier: MIT
#include "chord/ShapeText.h"
#include "common/BuiltIns.h"
#include "common/Choices.h"
#include "common/Failure.h"
#include "common/Terminal.h"
#include "common/TextTable.h"
#include "common/TuningWord.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/ScriptLine.h"
#include "edit/Targets.h"

#include <ZarnCore/chords/ZarnFingeringLibrary.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/ZarnChordNaming.h>

#include <ostream>

namespace zarn::tool {

namespace {

QString shapeOption()
{
    return QStringLiteral("shape");
}

const Choices &namingChoices()
{
    static const Choices choices = {
        {QStringLiteral("beat"), static_cast<int>(NamingStep::Beat)},
        {QStringLiteral("half"), static_cast<int>(NamingStep::HalfBar)},
        {QStringLiteral("bar"), static_cast<int>(NamingStep::Bar)},
    };
    return choices;
}

/// The first way to play a chord on a staff; raises when there is none.
ChordDiagram bestDiagram(const std::string &symbol, const Staff &staff)
{
    const auto chord = chord::Chord::fromText(symbol);
    if (!chord)
        throw Failure("\"" + printable(symbol) + "\" is no chord symbol that zarn knows; type "
                      + "its shape, such as x32010");
    if (chord->isNone())
        throw Failure(printable(symbol) + " is no chord, and has no shape");
    const chord::Capos capos{staff.capoFret(), staff.partialCapoFret(),
                             staff.partialCapoStringFlags()};
    const auto found = loadedCore().fingeringLibrary().voicings(*chord, presentTuning(staff), capos,
                                                                staff.fretCount());
    if (found.empty())
        throw Failure("no hand can play " + printable(symbol) + " on these strings");
    return found.front();
}

/// The diagram that --shape asks for: "best", or frets.
std::shared_ptr<const ChordDiagram> askedDiagram(const Values &values, const std::string &symbol,
                                                 const Staff &staff)
{
    const QString *const shape = values.option<QString>(shapeOption());
    if (shape == nullptr)
        return nullptr;
    try {
        if (!staff.isFretted())
            throw Failure("there are no strings to hold a shape on");
        ChordDiagram diagram = *shape == QLatin1String("best")
            ? bestDiagram(symbol, staff)
            : shapeOf(*shape, staff.tuning().stringCount());
        diagram.name = symbol;
        return std::make_shared<const ChordDiagram>(diagram);
    } catch (const Failure &failure) {
        throw LineError(values.optionColumn(shapeOption()), QString::fromUtf8(failure.what()));
    }
}

bool setChord(EditSession &session, const Values &values)
{
    const ScoreModelIndex beat = targetBeat(session, values);
    const std::string symbol = values.text(1);
    if (symbol.empty())
        throw LineError(values.column(1),
                        QStringLiteral("a chord has a symbol; \"no-chord\" takes one away"));
    return session.score().setChord(beat, {symbol, askedDiagram(values, symbol, *beat.staff())});
}

bool removeChords(EditSession &session, const Values &values)
{
    const ScoreModelRange range = targetBeats(session, values);
    if (session.score().unsetChord(range))
        return true;
    throw LineError(values.column(0), QStringLiteral("there is no chord here"));
}

std::vector<NamedPlace> namedPlaces(EditSession &session, const Values &values)
{
    const unsigned barCount = session.model().masterTrack()->masterBarCount();
    if (barCount == 0)
        throw Failure("there are no bars");
    const BarRange bars = values.has(0) ? values.get<BarRange>(0)
        : session.selection()           ? targetBars(session, values)
                                        : BarRange{0, barCount - 1};
    const auto step = static_cast<NamingStep>(values.get(1, static_cast<int>(NamingStep::HalfBar)));
    return nameChords(session.model(), bars.first, bars.last, step);
}

void print(EditSession &session, const std::vector<NamedPlace> &places)
{
    TextTable table({{QStringLiteral("Bar"), TextTable::Side::Right},
                     {QStringLiteral("Quarter"), TextTable::Side::Right},
                     {QStringLiteral("Chord")}});
    for (const NamedPlace &place : places)
        table.addRow({QString::number(place.bar + 1),
                      QString::fromStdString(place.offset.toString()),
                      QString::fromStdString(place.chord.toText())});
    session.out() << table.text(session.terminal());
}

bool suggestChords(EditSession &session, const Values &values)
{
    print(session, namedPlaces(session, values));
    return true;
}

/// The beat of a bar that sounds at an offset, or begins there; nothing when the bar has none.
std::optional<unsigned> beatAt(const Voice *voice, const utils::rational &offset)
{
    std::optional<unsigned> found;
    for (unsigned i = 0; voice != nullptr && i < voice->beatCount(); ++i) {
        const Beat &beat = *voice->beats()[i];
        if (beat.isGrace())
            continue;
        if (found && offset < voice->beatDrawingOffset(beat))
            break;
        found = i;
    }
    return found;
}

/// Writes the symbols over the beats of a voice, and tells of those that find none of their own: a
/// chord that changes under a long note or in an empty bar.
bool writeChords(EditSession &session, const Values &values)
{
    const auto places = namedPlaces(session, values);
    const Where where = values.where();
    const auto track = session.model().track(where.track);
    std::vector<std::pair<ScoreModelIndex, std::string>> written;
    std::vector<NamedPlace> left;
    for (const NamedPlace &place : places) {
        if (place.chord.isNone())
            continue;
        const auto bar = track->bar(place.bar, where.staff);
        const auto beat = beatAt(bar->voice(where.voice).get(), place.offset);
        const auto index = beat ? indexOf(session, where, {place.bar, *beat}) : ScoreModelIndex();
        if (!beat || (!written.empty() && written.back().first == index))
            left.push_back(place);
        else
            written.emplace_back(index, place.chord.toText());
    }
    if (written.empty())
        throw Failure("there is nothing to name here");
    Transaction step(&session.score(), QStringLiteral("SetChords"));
    for (const auto &[index, symbol] : written)
        if (!session.score().setChord(index, {symbol, index.beat()->chord().diagram}))
            return false;
    step.commit();
    session.out() << counted(written.size(), "chord") << " written\n";
    if (!left.empty()) {
        session.out() << "No beats of their own are left for:\n";
        print(session, left);
    }
    return true;
}

} // namespace

const std::vector<Command> &chordCommands()
{
    static const Parameter bars = {QStringLiteral("BARS"), Kind::Bars, Presence::Optional};
    static const Parameter step = {QStringLiteral("STEP"), Kind::Choice, Presence::Optional, 0, 0,
                                   &namingChoices()};
    static const std::vector<Command> commands = {
        {QStringLiteral("chord"),
         {{QStringLiteral("BEAT"), Kind::Beat, Presence::Assumed},
          {QStringLiteral("SYMBOL"), Kind::Text}},
         QStringLiteral("Write a chord over a beat; --shape best, or x32010, draws it too."),
         QStringLiteral("Score::setChord"),
         setChord,
         true,
         {{QStringLiteral("SHAPE"), Kind::Text}}},
        {QStringLiteral("no-chord"),
         {{QStringLiteral("BEATS"), Kind::Beats, Presence::Assumed}},
         QStringLiteral("Take the chords of beats away."),
         QStringLiteral("Score::unsetChord"),
         removeChords,
         true},
        {QStringLiteral("name-chords"),
         {bars, step},
         QStringLiteral("Write the chords of the music, a new one at each beat, half or bar."),
         QStringLiteral("Score::setChord"),
         writeChords,
         true},
        {QStringLiteral("suggest-chords"),
         {bars, step},
         QStringLiteral("List those chords, and write none."),
         QString(),
         suggestChords},
    };
    return commands;
}

} // namespace zarn::tool
