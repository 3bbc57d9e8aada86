// SPDX-License-Identifier: MIT
#include "common/Choices.h"
#include "common/Failure.h"
#include "common/SheetWords.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/ScriptLine.h"
#include "edit/Targets.h"

#include <ZarnCore/commands/Score/ZarnChangeSystems.h>
#include <ZarnCore/commands/Score/ZarnSetFixedLayout.h>
#include <ZarnCore/commands/Score/ZarnSetPageSetup.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/attributes/ZarnLayoutRatio.h>

namespace zarn::tool {

namespace {

constexpr double MostViews = 100;
constexpr double MostMargin = 1000;                                            ///< millimetres
constexpr double LeastStaff = 4 * cmd::SetPageSetup::smallestStaffSpace / 1e3; ///< the same
constexpr double MostStaff = 4 * cmd::SetPageSetup::largestStaffSpace / 1e3;

const Choices &layoutChoices()
{
    static const Choices choices = {
        {QStringLiteral("pages"), static_cast<int>(ViewLayout::Pages)},
        {QStringLiteral("continuous"), static_cast<int>(ViewLayout::Continuous)},
        {QStringLiteral("single-line"), static_cast<int>(ViewLayout::SingleLine)},
    };
    return choices;
}

const Choices &fermataChoices()
{
    static const Choices choices = {
        {QStringLiteral("short"), static_cast<int>(Fermata::Short)},
        {QStringLiteral("medium"), static_cast<int>(Fermata::Medium)},
        {QStringLiteral("long"), static_cast<int>(Fermata::Long)},
        {QStringLiteral("none"), static_cast<int>(Fermata::None)},
    };
    return choices;
}

/// The view of a parameter that is counted from 1 and may be left out.
unsigned view(EditSession &session, const Values &values, std::size_t parameter)
{
    const int number = values.get(parameter, 1);
    const std::size_t count = session.model().views().size();
    if (static_cast<std::size_t>(number) > count)
        throw LineError(
            values.column(parameter),
            QStringLiteral("there is no view %1; the score has %2").arg(number).arg(count));
    return static_cast<unsigned>(number) - 1;
}

bool setLayout(EditSession &session, const Values &values)
{
    return session.score().setLayout(view(session, values, 1),
                                     static_cast<ViewLayout>(values.get<int>(0)));
}

const Choices &orientationChoices()
{
    static const Choices choices = {
        choice("portrait", PageSetup::Orientation::Portrait),
        choice("landscape", PageSetup::Orientation::Landscape),
    };
    return choices;
}

bool setPage(EditSession &session, const Values &values)
{
    PageSetup setup = session.model().pageSetup();
    const QString word = values.get<QString>(0);
    if (!readSheet(word, setup))
        throw LineError(values.column(0),
                        QStringLiteral("\"%1\" is no sheet; type %2").arg(word, sheetWords()));
    setup.orientation = static_cast<PageSetup::Orientation>(values.get(1, 0));
    if (const double *const margin = values.option<double>(QStringLiteral("margin")))
        setup.leftMargin = setup.topMargin = setup.rightMargin = setup.bottomMargin =
            micrometres(*margin);
    if (const double *const size = values.option<double>(QStringLiteral("staff-size")))
        setup.staffSpace = micrometres(*size / 4);
    if (session.score().setPageSetup(setup))
        return true;
    throw LineError(values.column(0),
                    QStringLiteral("the sides of a sheet are 20 to 2000 mm long, and its margins "
                                   "leave at least half of it"));
}

bool setMultiRest(EditSession &session, const Values &values)
{
    return session.score().setMultiRest(view(session, values, 1), values.get(0, true));
}

/// The track that a line names, else the full score.
int trackOrScore(const Values &values)
{
    return values.namesWhere() ? static_cast<int>(values.where().track) : ChangeSystems::FullScore;
}

/// The numbers of a list such as "4,3,5"; raises for what is none.
template <class Number, class Read>
std::vector<Number> numbers(const Values &values, std::size_t parameter, Read read,
                            const QString &expected)
{
    std::vector<Number> list;
    for (const QString &word : values.get<QString>(parameter).split(QLatin1Char(','))) {
        bool isNumber = false;
        const auto number = read(word, isNumber);
        if (!isNumber)
            throw LineError(values.column(parameter),
                            QStringLiteral("\"%1\" is not %2").arg(word, expected));
        list.push_back(static_cast<Number>(number));
    }
    return list;
}

bool setSystems(EditSession &session, const Values &values)
{
    const auto systems = numbers<int>(
        values, 0,
        [](const QString &word, bool &isNumber) {
            const int bars = word.toInt(&isNumber);
            isNumber = isNumber && bars >= 1 && bars <= ChangeSystems::MostBars;
            return bars;
        },
        QStringLiteral("a number of bars from 1 to %1; type such as 4,4,3")
            .arg(ChangeSystems::MostBars));
    return values.namesWhere()
        ? session.score().setTrackSystemsLayout(values.where().track, systems)
        : session.score().setFullScoreSystemsLayout(systems);
}

bool setEvenSystems(EditSession &session, const Values &values)
{
    return session.score().setFixedLayout(trackOrScore(values),
                                          static_cast<unsigned>(values.get<int>(0)));
}

bool setAutoSystems(EditSession &session, const Values &values)
{
    return session.score().setAutoLayout(trackOrScore(values));
}

bool setBarWidths(EditSession &session, const Values &values)
{
    const unsigned first = targetBar(session, values);
    const auto widths = numbers<float>(
        values, 1,
        [](const QString &word, bool &isNumber) {
            const float width = word.toFloat(&isNumber);
            isNumber = isNumber && isLayoutRatio(width);
            return width;
        },
        QStringLiteral("a width from 0.1 to 10, 1 being the usual one; type such as 1,2,0.5"));
    if (widths.size() > session.model().masterTrack()->masterBarCount() - first)
        throw LineError(values.column(1),
                        QStringLiteral("there are more widths than bars from here on"));
    return values.namesWhere()
        ? session.score().setBarLayoutRatios(values.where().track, first, widths)
        : session.score().setMasterBarLayoutRatios(first, widths);
}

bool setBeams(EditSession &session, const Values &values)
{
    const BarRange bars = targetBars(session, values);
    const QString text = values.get<QString>(1);
    const auto groups = text == QLatin1String("auto") ? std::optional<BeamGroups>(BeamGroups())
                                                      : BeamGroups::fromString(text.toStdString());
    if (!groups)
        throw LineError(
            values.column(1),
            QStringLiteral("\"%1\" is no grouping; type such as 3+3+2, or auto").arg(text));
    for (unsigned i = bars.first; i <= bars.last; ++i) {
        const TimeSignature &meter = session.model().masterTrack()->masterBar(i)->timeSignature();
        if (!groups->fit(meter))
            throw LineError(values.column(1),
                            QStringLiteral("these do not fill bar %1, which has %2/%3")
                                .arg(i + 1)
                                .arg(meter.getNumerator())
                                .arg(meter.getDenominator()));
    }
    return session.score().setMasterBarBeamGroups(bars.first, bars.last, *groups);
}

/// The fermata over the time at which a beat starts; null when there is none.
const FermataMark *fermataAt(const ScoreModelIndex &beat)
{
    const utils::rational position = beat.beatDrawingOffset();
    for (const FermataMark &mark : beat.masterBar()->fermatas())
        if (mark.position == position)
            return &mark;
    return nullptr;
}

bool setFermata(EditSession &session, const Values &values)
{
    const ScoreModelIndex beat = targetBeat(session, values);
    const auto kind = static_cast<Fermata>(values.get(1, static_cast<int>(Fermata::Medium)));
    if (kind == Fermata::None && fermataAt(beat) == nullptr)
        throw LineError(values.column(0), QStringLiteral("there is no fermata here"));
    return session.score().setFermata(beat, kind);
}

bool stretchFermata(EditSession &session, const Values &values)
{
    const ScoreModelIndex beat = targetBeat(session, values);
    const FermataMark *const present = fermataAt(beat);
    if (present == nullptr)
        throw LineError(values.column(0),
                        QStringLiteral("there is no fermata here; \"fermata\" sets one"));
    FermataMark mark = *present;
    mark.stretch = static_cast<std::uint16_t>(values.get<int>(1));
    return session.score().editFermata(static_cast<unsigned>(beat.barIndex()), present->position,
                                       mark);
}

} // namespace

const std::vector<Command> &layoutCommands()
{
    static const Parameter view = {QStringLiteral("VIEW"), Kind::Whole, Presence::Optional, 1,
                                   MostViews};
    static const Parameter beat = {QStringLiteral("BEAT"), Kind::Beat, Presence::Assumed};
    static const std::vector<Command> commands = {
        {QStringLiteral("layout"),
         {{QStringLiteral("LAYOUT"), Kind::Choice, Presence::Required, 0, 0, &layoutChoices()},
          view},
         QStringLiteral("Lay a view out on pages, on one long sheet, or in one line."),
         QStringLiteral("Score::setLayout"),
         setLayout},
        {QStringLiteral("page"),
         {{QStringLiteral("SHEET"), Kind::Text},
          {QStringLiteral("WAY"), Kind::Choice, Presence::Optional, 0, 0, &orientationChoices()}},
         QStringLiteral("Set the sheet, such as A4, letter or 210x297, portrait or landscape."),
         QStringLiteral("Score::setPageSetup"),
         setPage,
         false,
         {{QStringLiteral("margin"), Kind::Decimal, Presence::Optional, 0, MostMargin},
          {QStringLiteral("staff-size"), Kind::Decimal, Presence::Optional, LeastStaff,
           MostStaff}}},
        {QStringLiteral("multi-rest"),
         {{QStringLiteral("SWITCH"), Kind::Switch, Presence::Assumed}, view},
         QStringLiteral("Draw runs of empty bars as one in a view."),
         QStringLiteral("Score::setMultiRest"),
         setMultiRest},
        {QStringLiteral("systems"),
         {{QStringLiteral("BARS"), Kind::Text}},
         QStringLiteral("Set the bars of each system, such as 4,4,3; with t2, of that part alone."),
         QStringLiteral("Score::setFullScoreSystemsLayout"),
         setSystems,
         true},
        {QStringLiteral("even-systems"),
         {{QStringLiteral("BARS"), Kind::Whole, Presence::Required, 1,
           cmd::SetFixedLayout::MostBarsOfAll}},
         QStringLiteral("Give every system the same number of bars."),
         QStringLiteral("Score::setFixedLayout"),
         setEvenSystems,
         true},
        {QStringLiteral("auto-systems"),
         {},
         QStringLiteral("Leave the breaking into systems to the program."),
         QStringLiteral("Score::setAutoLayout"),
         setAutoSystems,
         true},
        {QStringLiteral("bar-widths"),
         {{QStringLiteral("BAR"), Kind::Bar, Presence::Assumed},
          {QStringLiteral("WIDTHS"), Kind::Text}},
         QStringLiteral("Set how wide bars are, from one on, such as 1,2,0.5."),
         QStringLiteral("Score::setMasterBarLayoutRatios"),
         setBarWidths,
         true},
        {QStringLiteral("beams"),
         {{QStringLiteral("BARS"), Kind::Bars, Presence::Assumed},
          {QStringLiteral("GROUPS"), Kind::Text}},
         QStringLiteral("Group the beams of bars, such as 3+3+2, or auto."),
         QStringLiteral("Score::setMasterBarBeamGroups"),
         setBeams},
        {QStringLiteral("fermata"),
         {beat,
          {QStringLiteral("KIND"), Kind::Choice, Presence::Optional, 0, 0, &fermataChoices()}},
         QStringLiteral("Put a fermata over the time of a beat, or take it away."),
         QStringLiteral("Score::setFermata"),
         setFermata,
         true},
        {QStringLiteral("stretch-fermata"),
         {beat,
          {QStringLiteral("PERCENT"), Kind::Whole, Presence::Required, 0,
           FermataMark::MostStretch}},
         QStringLiteral("Set by how much the time under a fermata lasts longer."),
         QStringLiteral("Score::editFermata"),
         stretchFermata,
         true},
    };
    return commands;
}

} // namespace zarn::tool
