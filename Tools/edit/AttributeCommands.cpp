// SPDX-License-Identifier: MIT
#include "common/Choices.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/ScriptLine.h"
#include "edit/Targets.h"

#include <ZarnCore/model/ZarnBarAttribute.h>
#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/ZarnMasterBarAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <map>

namespace zarn::tool {

namespace {

constexpr double MostSteps = 16;

/// The second of two tables whose attributes are in one list: from this number on.
constexpr int SecondTable = 1000;

/// "AttackDynamic" as "attack-dynamic".
QString dashed(std::string_view name)
{
    QString result;
    for (const char letter : name) {
        const QChar sign = QLatin1Char(letter);
        if (sign.isUpper() && !result.isEmpty())
            result += QLatin1Char('-');
        result += sign.toLower();
    }
    return result;
}

/// Whether values of a kind can be typed: some are read by commands of their own alone.
bool isTyped(const AttributeRange &range)
{
    const auto &held = range.sample().held();
    return !std::holds_alternative<RhythmValue>(held) && !std::holds_alternative<Syllables>(held)
        && !std::holds_alternative<SlurEnds>(held) && !std::holds_alternative<KeySignature>(held)
        && !std::holds_alternative<Section>(held)
        && !std::holds_alternative<std::vector<ClefChange>>(held);
}

template <class Node>
void addNames(Choices &choices, int firstNumber)
{
    for (const auto &row : attributesOf<Node>()) {
        const QString name = dashed(row.name);
        const auto isPresent = [&name](const auto &choice) { return choice.first == name; };
        if (isTyped(row.range) && std::none_of(choices.begin(), choices.end(), isPresent))
            choices.emplace_back(name, firstNumber + static_cast<int>(row.id));
    }
}

/// What beats and notes have.
const Choices &beatAndNoteNames()
{
    static const Choices choices = [] {
        Choices list;
        addNames<Beat>(list, 0);
        addNames<Note>(list, SecondTable);
        return list;
    }();
    return choices;
}

const Choices &beatNames()
{
    static const Choices choices = [] {
        Choices list;
        addNames<Beat>(list, 0);
        return list;
    }();
    return choices;
}

/// What columns and bars of one staff have.
const Choices &barNames()
{
    static const Choices choices = [] {
        Choices list;
        addNames<MasterBar>(list, 0);
        addNames<Bar>(list, SecondTable);
        return list;
    }();
    return choices;
}

/// The enumerator that a person means: by its text, whatever its case and without its dashes.
std::optional<AttributeValue> enumerator(const AttributeRange &range, const QString &word)
{
    const QString meant = QString(word).remove(QLatin1Char('-'));
    const auto &texts = range.texts();
    for (std::size_t i = 0; i < texts.size(); ++i)
        if (meant.compare(QString::fromStdString(texts[i]), Qt::CaseInsensitive) == 0)
            return AttributeValue(static_cast<int>(i));
    return std::nullopt;
}

/// The value of an attribute that a word of a line means; raises with what would be right.
AttributeValue valueOf(const QString &word, int column, const AttributeRange &range)
{
    auto value = range.fromText(word.toStdString());
    if (!value && range.texts != nullptr)
        value = enumerator(range, word);
    if (!value && std::holds_alternative<bool>(range.sample().held())
        && (word == QLatin1String("on") || word == QLatin1String("off")))
        value = AttributeValue(word == QLatin1String("on"));
    if (value)
        return *value;
    throw LineError(column,
                    QStringLiteral("\"%1\" is not right here; type %2")
                        .arg(word, QString::fromStdString(range.description())));
}

AttributeValue valueOf(const Values &values, std::size_t parameter, const AttributeRange &range)
{
    return valueOf(values.get<QString>(parameter), values.column(parameter), range);
}

/// The values of attributes of one table, whose names are numbered from `firstNumber` on.
template <class Id>
std::map<Id, AttributeValue> valuesOf(const std::vector<NamedValue> &named, int firstNumber)
{
    std::map<Id, AttributeValue> values;
    for (const NamedValue &one : named) {
        const auto id = static_cast<Id>(one.number - firstNumber);
        values.emplace(id, valueOf(one.text, one.column, rowOf(id).range));
    }
    return values;
}

bool refuse(const Values &values, const QString &attribute)
{
    throw LineError(values.column(0), QStringLiteral("nothing here takes \"%1\"").arg(attribute));
}

QString nameIn(const Choices &choices, int number)
{
    for (const auto &choice : choices)
        if (choice.second == number)
            return choice.first;
    return {};
}

bool set(EditSession &session, const Values &values)
{
    const int number = values.get<int>(1);
    if (number >= SecondTable) {
        const auto id = static_cast<NoteAttribute>(number - SecondTable);
        const AttributeValue value = valueOf(values, 2, rowOf(id).range);
        return session.score().setNoteAttribute(targetNotes(session, values), id, value)
            || refuse(values, nameIn(beatAndNoteNames(), number));
    }
    const auto id = static_cast<BeatAttribute>(number);
    const AttributeValue value = valueOf(values, 2, rowOf(id).range);
    return session.score().setBeatAttribute(targetBeats(session, values), id, value)
        || refuse(values, nameIn(beatAndNoteNames(), number));
}

bool unset(EditSession &session, const Values &values)
{
    const int number = values.get<int>(1);
    if (number < SecondTable)
        return session.score().unsetBeatAttribute(targetBeats(session, values),
                                                  static_cast<BeatAttribute>(number))
            || refuse(values, nameIn(beatAndNoteNames(), number));
    const auto id = static_cast<NoteAttribute>(number - SecondTable);
    return session.score().setNoteAttribute(targetNotes(session, values), id, defaultOf(rowOf(id)))
        || refuse(values, nameIn(beatAndNoteNames(), number));
}

bool toggle(EditSession &session, const Values &values)
{
    const auto id = static_cast<BeatAttribute>(values.get<int>(1));
    if (!std::holds_alternative<bool>(rowOf(id).range.sample().held()))
        throw LineError(values.column(1),
                        QStringLiteral("this is not on or off; \"set\" gives it a value"));
    return session.score().switchBeatAttribute(targetBeats(session, values), id)
        || refuse(values, nameIn(beatNames(), values.get<int>(1)));
}

bool step(EditSession &session, const Values &values)
{
    const auto id = static_cast<BeatAttribute>(values.get<int>(1));
    if (session.score().incrementBeatSecondaryAttribute(targetBeats(session, values), id,
                                                        values.get<int>(2)))
        return true;
    throw LineError(values.column(0), QStringLiteral("no beat here can be stepped that way"));
}

bool setBars(EditSession &session, const Values &values)
{
    const BarRange bars = targetBars(session, values);
    const int number = values.get<int>(1);
    if (number < SecondTable) {
        const auto id = static_cast<MasterBarAttribute>(number);
        return session.score().setMasterBarAttribute(bars.first, bars.last, id,
                                                     valueOf(values, 2, rowOf(id).range))
            || refuse(values, nameIn(barNames(), number));
    }
    const Where staff = targetStaff(session, values);
    const auto id = static_cast<BarAttribute>(number - SecondTable);
    return session.score().setBarAttribute(staff.track, staff.staff, bars.first, bars.last, id,
                                           valueOf(values, 2, rowOf(id).range))
        || refuse(values, nameIn(barNames(), number));
}

bool unsetBars(EditSession &session, const Values &values)
{
    const BarRange bars = targetBars(session, values);
    const int number = values.get<int>(1);
    if (number < SecondTable)
        return session.score().unsetMasterBarAttributes(bars.first, bars.last,
                                                        {static_cast<MasterBarAttribute>(number)})
            || refuse(values, nameIn(barNames(), number));
    const Where staff = targetStaff(session, values);
    return session.score().unsetBarAttributes(staff.track, staff.staff, bars.first, bars.last,
                                              {static_cast<BarAttribute>(number - SecondTable)})
        || refuse(values, nameIn(barNames(), number));
}

bool refuseAll(const Values &values)
{
    throw LineError(values.column(0),
                    QStringLiteral("nothing here takes any of these, or one excludes another"));
}

bool setSeveral(EditSession &session, const Values &values)
{
    const auto &named = values.get<std::vector<NamedValue>>(1);
    return session.score().setBeatAttributes(targetBeats(session, values),
                                             valuesOf<BeatAttribute>(named, 0))
        || refuseAll(values);
}

bool setSeveralInBars(EditSession &session, const Values &values)
{
    const BarRange bars = targetBars(session, values);
    const auto &named = values.get<std::vector<NamedValue>>(1);
    const bool isOfStaff = named.front().number >= SecondTable;
    for (const NamedValue &one : named)
        if ((one.number >= SecondTable) != isOfStaff)
            throw LineError(
                one.column,
                QStringLiteral("\"%1\" and \"%2\" do not go together: one is of all "
                               "staves, the other of one staff")
                    .arg(nameIn(barNames(), named.front().number), nameIn(barNames(), one.number)));
    if (!isOfStaff)
        return session.score().setMasterBarAttributes(bars.first, bars.last,
                                                      valuesOf<MasterBarAttribute>(named, 0))
            || refuseAll(values);
    const Where staff = targetStaff(session, values);
    return session.score().setBarAttributes(staff.track, staff.staff, bars.first, bars.last,
                                            valuesOf<BarAttribute>(named, SecondTable))
        || refuseAll(values);
}

} // namespace

const std::vector<Command> &attributeCommands()
{
    static const Parameter beats = {QStringLiteral("BEATS"), Kind::Beats, Presence::Assumed};
    static const Parameter bars = {QStringLiteral("BARS"), Kind::Bars, Presence::Assumed};
    static const Parameter value = {QStringLiteral("VALUE"), Kind::Text};
    const auto attribute = [](const Choices &names) {
        return Parameter{
            QStringLiteral("ATTRIBUTE"), Kind::Choice, Presence::Required, 0, 0, &names};
    };
    const auto several = [](const Choices &names) {
        return Parameter{
            QStringLiteral("VALUES"), Kind::NamedValues, Presence::Required, 0, 0, &names};
    };
    static const std::vector<Command> commands = {
        {QStringLiteral("set"),
         {beats, attribute(beatAndNoteNames()), value},
         QStringLiteral("Give beats or notes any attribute; VALUE ? tells what it takes."),
         QStringLiteral("Score::setBeatAttribute"),
         set,
         true},
        {QStringLiteral("set-several"),
         {beats, several(beatNames())},
         QStringLiteral("Give beats several attributes in one step: dynamic f cue on."),
         QStringLiteral("Score::setBeatAttributes"),
         setSeveral,
         true},
        {QStringLiteral("unset"),
         {beats, attribute(beatAndNoteNames())},
         QStringLiteral("Take an attribute of beats or notes away."),
         QStringLiteral("Score::unsetBeatAttribute"),
         unset,
         true},
        {QStringLiteral("toggle"),
         {beats, attribute(beatNames())},
         QStringLiteral("Turn an attribute of beats on, or off when all have it."),
         QStringLiteral("Score::switchBeatAttribute"),
         toggle,
         true},
        {QStringLiteral("step"),
         {beats,
          attribute(beatNames()),
          {QStringLiteral("STEPS"), Kind::Whole, Presence::Required, -MostSteps, MostSteps}},
         QStringLiteral("Move an attribute of beats that has an order up or down."),
         QStringLiteral("Score::incrementBeatSecondaryAttribute"),
         step,
         true},
        {QStringLiteral("set-bars"),
         {bars, attribute(barNames()), value},
         QStringLiteral("Give bars any attribute; VALUE ? tells what it takes."),
         QStringLiteral("Score::setMasterBarAttribute"),
         setBars,
         true},
        {QStringLiteral("set-several-bars"),
         {bars, several(barNames())},
         QStringLiteral("Give bars several attributes in one step, of all staves or of one."),
         QStringLiteral("Score::setMasterBarAttributes"),
         setSeveralInBars,
         true},
        {QStringLiteral("unset-bars"),
         {bars, attribute(barNames())},
         QStringLiteral("Take an attribute of bars away."),
         QStringLiteral("Score::unsetMasterBarAttributes"),
         unsetBars,
         true},
    };
    return commands;
}

} // namespace zarn::tool
