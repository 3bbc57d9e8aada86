// SPDX-License-Identifier: MIT
#include "actions/ActionTable.h"
#include "actions/Menus.h"
#include "app/Editor.h"
#include "app/MainWindow.h"
#include "document/Document.h"
#include "entry/Clipping.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QCoreApplication>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(EditActions)
};

QString undoText(const ActionContext &context)
{
    const QString title = context.document.undoTitle();
    return title.isEmpty() ? Text::tr("&Undo") : Text::tr("&Undo: %1").arg(title);
}

QString redoText(const ActionContext &context)
{
    const QString title = context.document.redoTitle();
    return title.isEmpty() ? Text::tr("&Redo") : Text::tr("&Redo: %1").arg(title);
}

void copy(const ActionContext &context)
{
    const Clip clip = clipOf(context.document);
    if (!clip.isEmpty())
        context.window.editor().setClipboard(clip);
}

void cut(const ActionContext &context)
{
    copy(context);
    context.document.edit(Text::tr("Cut"),
                          [&](Score &score) { return removeSelected(context.document, score); });
}

template <PasteMode mode>
void paste(const ActionContext &context)
{
    const Clip &clip = context.window.editor().clipboard();
    if (!pasteClip(context.document, clip, mode))
        context.window.say(Text::tr("This cannot be pasted here."));
}

void pasteTimes(const ActionContext &context)
{
    constexpr int most = 100;
    Editor &editor = context.window.editor();
    const auto times =
        editor.questions().askNumber(&context.window, Text::tr("How many times:"), 2, 1, most);
    if (times
        && !pasteClip(context.document, editor.clipboard(), PasteMode::Replace,
                      static_cast<unsigned>(*times)))
        context.window.say(Text::tr("This cannot be pasted here."));
}

bool canPaste(const ActionContext &context)
{
    return !context.window.editor().clipboard().isEmpty();
}

bool hasPlace(const ActionContext &context)
{
    return context.document.cursor().isBarValid();
}

void selectAll(const ActionContext &context)
{
    ScoreModelIndex first = context.document.cursor();
    const unsigned bars = context.document.model().masterTrack()->masterBarCount();
    if (!first.isBarValid() || bars == 0)
        return;
    ScoreModelIndex last = first;
    first.setBarIndex(0);
    first.setBeatIndex(0);
    last.setBarIndex(static_cast<int>(bars) - 1);
    last.setBeatIndex(0);
    context.document.select(first, last, SelectedPart::AllTracks);
}

template <SelectedPart part>
void selectBars(const ActionContext &context)
{
    const ScoreModelIndex place = context.document.cursor();
    context.document.select(place, place, part);
}

} // namespace

std::vector<ActionGroup> editActions()
{
    const std::vector<Action> undoing = {
        {QStringLiteral("edit.undo"),
         Text::tr("&Undo"),
         {QKeySequence::Undo},
         [](const ActionContext &context) { context.document.undo(); },
         [](const ActionContext &context) { return context.document.canUndo(); },
         KeyScope::Window,
         nullptr,
         undoText},
        {QStringLiteral("edit.redo"),
         Text::tr("&Redo"),
         {QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))},
         [](const ActionContext &context) { context.document.redo(); },
         [](const ActionContext &context) { return context.document.canRedo(); },
         KeyScope::Window,
         nullptr,
         redoText},
    };
    Action pasteOften{QStringLiteral("edit.pasteTimes"),
                      Text::tr("Paste se&veral times..."),
                      {QKeySequence(QStringLiteral("Ctrl+Alt+Shift+V"))},
                      pasteTimes,
                      canPaste,
                      KeyScope::Score};
    pasteOften.isAsking = true;
    const std::vector<Action> clipping = {
        {QStringLiteral("edit.cut"),
         Text::tr("Cu&t"),
         {QKeySequence::Cut},
         cut,
         hasPlace,
         KeyScope::Score},
        {QStringLiteral("edit.copy"),
         Text::tr("&Copy"),
         {QKeySequence::Copy},
         copy,
         hasPlace,
         KeyScope::Score},
        {QStringLiteral("edit.paste"),
         Text::tr("&Paste"),
         {QKeySequence::Paste},
         paste<PasteMode::Replace>,
         canPaste,
         KeyScope::Score},
        {QStringLiteral("edit.pasteInsert"),
         Text::tr("Paste &in front"),
         {QKeySequence(QStringLiteral("Ctrl+Shift+V"))},
         paste<PasteMode::Insert>,
         canPaste,
         KeyScope::Score},
        {QStringLiteral("edit.pasteMerge"),
         Text::tr("Paste int&o"),
         {QKeySequence(QStringLiteral("Ctrl+Alt+V"))},
         paste<PasteMode::Merge>,
         canPaste,
         KeyScope::Score},
        pasteOften,
    };
    const std::vector<Action> selecting = {
        {QStringLiteral("edit.selectAll"),
         Text::tr("Select &all"),
         {QKeySequence::SelectAll},
         selectAll,
         hasPlace,
         KeyScope::Score},
        {QStringLiteral("edit.selectBar"),
         Text::tr("Select the &bar"),
         {QKeySequence(QStringLiteral("Ctrl+B"))},
         selectBars<SelectedPart::Bars>,
         hasPlace,
         KeyScope::Score},
        {QStringLiteral("edit.selectColumn"),
         Text::tr("Select the bar of all &tracks"),
         {QKeySequence(QStringLiteral("Ctrl+Shift+B"))},
         selectBars<SelectedPart::AllTracks>,
         hasPlace,
         KeyScope::Score},
        {QStringLiteral("edit.selectNothing"),
         Text::tr("Select &nothing"),
         {QKeySequence(QStringLiteral("Esc"))},
         [](const ActionContext &context) { context.document.clearSelection(); },
         [](const ActionContext &context) { return !context.document.selection().isEmpty(); },
         KeyScope::Score},
    };
    Action shortcuts;
    shortcuts.id = QStringLiteral("edit.shortcuts");
    shortcuts.text = Text::tr("&Shortcuts...");
    shortcuts.run = [](const ActionContext &context) { context.window.chooseShortcuts(); };
    shortcuts.isAsking = true;
    return {{titles(Menu::Edit), undoing},
            {titles(Menu::Edit), clipping},
            {titles(Menu::Edit), selecting},
            {titles(Menu::Edit), {shortcuts}}};
}

} // namespace zarn::editor
