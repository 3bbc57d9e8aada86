// SPDX-License-Identifier: MIT
#include "actions/ScoreStep.h"

#include "app/Editor.h"
#include "app/MainWindow.h"
#include "document/Document.h"

#include <QCoreApplication>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(ScoreStep)
};

Action actionOf(const char *id, const QString &text, const char *keys)
{
    Action action;
    action.id = QLatin1String(id);
    action.text = text;
    action.keys = QKeySequence::listFromString(QLatin1String(keys), QKeySequence::PortableText);
    action.scope = KeyScope::Score;
    action.isEnabled = [](const ActionContext &context) {
        return context.document.cursor().isBarValid();
    };
    return action;
}

void step(const ActionContext &context, const QString &title, const Change &change)
{
    if (!context.document.edit(title, change))
        Q_EMIT context.document.refused(Text::tr("\"%1\" is not possible here.").arg(title));
}

} // namespace

Action scoreStep(const char *id, const QString &text, const char *keys,
                 std::function<bool(const ActionContext &, Score &)> change)
{
    Action action = actionOf(id, text, keys);
    action.run = [title = plainText(text),
                  change = std::move(change)](const ActionContext &context) {
        step(context, title, [&](Score &score) { return change(context, score); });
    };
    return action;
}

Action askedStep(const char *id, const QString &text, const char *keys,
                 std::function<Change(const ActionContext &)> ask)
{
    Action action = actionOf(id, text + QStringLiteral("..."), keys);
    action.isAsking = true;
    action.run = [title = plainText(text), ask = std::move(ask)](const ActionContext &context) {
        if (const Change change = ask(context))
            step(context, title, change);
    };
    return action;
}

Action numberStep(const char *id, const QString &text, const QString &label, int least, int most,
                  std::function<int(const ActionContext &)> present,
                  std::function<bool(const ActionContext &, Score &, int)> set)
{
    return askedStep(id, text, "", [=](const ActionContext &context) -> Change {
        const auto given = context.window.editor().questions().askNumber(
            &context.window, label, present(context), least, most);
        if (!given)
            return nullptr;
        return [context, set, value = *given](Score &score) { return set(context, score, value); };
    });
}

std::optional<QVariantMap> ask(const ActionContext &context, const Form &form)
{
    return context.window.editor().questions().askForm(&context.window, form);
}

QString plainText(QString text)
{
    text.remove(QLatin1Char('&'));
    while (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text;
}

} // namespace zarn::editor
