// SPDX-License-Identifier: MIT
#include "actions/ActionTable.h"
#include "actions/AttributeForms.h"
#include "actions/AttributeText.h"
#include "actions/Menus.h"
#include "document/Attributes.h"
#include "document/Document.h"

#include <ZarnCore/model/ZarnBarAttribute.h>
#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/ZarnMasterBarAttribute.h>
#include <ZarnCore/model/ZarnNoteAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QCoreApplication>
#include <QMap>

/// What beats, notes and bars can be marked with, from the tables of the attributes: each that is
/// on or off is an action, each of a few values a menu of them, and forms ask for the others.
namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(AttributeActions)
};

void refuse(const ActionContext &context, const QString &name)
{
    Q_EMIT context.document.refused(Text::tr("Nothing here takes \"%1\".").arg(name));
}

template <class Node>
void apply(const ActionContext &context, typename AttributeOf<Node>::Id id,
           const AttributeValue &value)
{
    const QString name = attributeText(rowOf(id).name);
    if (!context.document.edit(name, [&](Score &score) {
            return setSelected<Node>(context.document, score, id, value);
        }))
        refuse(context, name);
}

/// The same value again takes it off.
template <class Node>
void toggle(const ActionContext &context, typename AttributeOf<Node>::Id id,
            const AttributeValue &value)
{
    const bool isOff = valueAtCursor<Node>(context.document, id) != value;
    apply<Node>(context, id, isOff ? value : defaultOf(rowOf(id)));
}

template <class Node>
void ask(const ActionContext &context, typename AttributeOf<Node>::Id id)
{
    const Change change = askAttribute<Node>(context, id);
    const QString name = attributeText(rowOf(id).name);
    if (change && !context.document.edit(name, change))
        refuse(context, name);
}

/// Of what is written often.
QList<QKeySequence> usualKeys(const QString &id)
{
    static const QMap<QString, QString> keys = {
        {QStringLiteral("beat.mark.Text"), QStringLiteral("T")},
        {QStringLiteral("note.mark.Vibrato0"), QStringLiteral("V")},
        {QStringLiteral("note.mark.Vibrato1"), QStringLiteral("W")},
        {QStringLiteral("beat.mark.PickStroke1"), QStringLiteral("U")},
        {QStringLiteral("beat.mark.PickStroke2"), QStringLiteral("N")},
    };
    return QKeySequence::listFromString(keys.value(id), QKeySequence::PortableText);
}

template <class Node>
Action choice(typename AttributeOf<Node>::Id id, const QString &name, const QString &text,
              const AttributeValue &value)
{
    Action action;
    action.id = name;
    action.keys = usualKeys(name);
    action.text = text;
    action.run = [id, value](const ActionContext &context) { toggle<Node>(context, id, value); };
    action.isEnabled = [](const ActionContext &context) {
        return context.document.cursor().isBarValid();
    };
    action.isChecked = [id, value](const ActionContext &context) {
        return valueAtCursor<Node>(context.document, id) == value;
    };
    action.scope = KeyScope::Score;
    return action;
}

template <class Node>
void add(std::vector<ActionGroup> &groups, Menu menu, const char *prefix)
{
    ActionGroup single{titles(menu, Text::tr("&Marks")), {}};
    std::vector<ActionGroup> choices;
    for (const auto &row : attributesOf<Node>()) {
        if (!isOfMenus<Node>(row.id) || hasOwnForm(row.id))
            continue;
        const auto id = row.id;
        const QString name = QLatin1String(prefix)
            + QString::fromLatin1(row.name.data(), static_cast<int>(row.name.size()));
        if (std::holds_alternative<bool>(row.range.sample().held())) {
            single.actions.push_back(choice<Node>(id, name, attributeText(row.name), true));
        } else if (row.range.texts != nullptr) {
            ActionGroup values{titles(menu, attributeText(row.name)), {}};
            const auto &texts = row.range.texts();
            const auto usual = defaultOf(row).template to<int>();
            for (int value = 0; value < static_cast<int>(texts.size()); ++value)
                if (!texts[static_cast<std::size_t>(value)].empty() && value != usual
                    && row.range.contains(value))
                    values.actions.push_back(
                        choice<Node>(id, name + QString::number(value),
                                     attributeText(texts[static_cast<std::size_t>(value)]), value));
            choices.push_back(std::move(values));
        } else {
            Action action;
            action.id = name;
            action.keys = usualKeys(name);
            action.text = Text::tr("%1...").arg(attributeText(row.name));
            action.run = [id](const ActionContext &context) { ask<Node>(context, id); };
            action.isEnabled = [](const ActionContext &context) {
                return context.document.cursor().isBarValid();
            };
            action.scope = KeyScope::Score;
            action.isAsking = true;
            single.actions.push_back(std::move(action));
        }
    }
    groups.push_back(std::move(single));
    for (ActionGroup &group : choices)
        groups.push_back(std::move(group));
}

} // namespace

std::vector<ActionGroup> attributeActions()
{
    std::vector<ActionGroup> groups;
    add<Beat>(groups, Menu::Beat, "beat.mark.");
    add<Note>(groups, Menu::Note, "note.mark.");
    add<MasterBar>(groups, Menu::Bar, "bar.mark.");
    add<Bar>(groups, Menu::Bar, "bar.staff.");
    return groups;
}

} // namespace zarn::editor
