// SPDX-License-Identifier: MIT
#include "actions/ActionTable.h"
#include "actions/Menus.h"
#include "app/Editor.h"
#include "app/MainWindow.h"
#include "dialogs/NewScoreDialog.h"
#include "document/Document.h"

#include <QApplication>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(FileActions)
};

void open(const ActionContext &context)
{
    Editor &editor = context.window.editor();
    const QString path = editor.questions().fileToOpen(&context.window, openFilters());
    if (!path.isEmpty())
        editor.open(path, &context.window);
}

void newFromTemplate(const ActionContext &context)
{
    NewScoreDialog dialog(&context.window);
    if (dialog.exec() == QDialog::Accepted)
        context.window.editor().showInPlaceOf(&context.window, loadedModel(dialog.score()));
}

void openRecent(const ActionContext &context)
{
    Editor &editor = context.window.editor();
    const QStringList files = editor.recentFiles();
    const auto chosen =
        editor.questions().askChoice(&context.window, Text::tr("Open again:"), files, 0);
    if (chosen)
        editor.open(files.at(*chosen), &context.window);
}

void newWindow(const ActionContext &context)
{
    context.window.editor().showAgain(context.window.sharedDocument());
}

void quit(const ActionContext &context)
{
    for (MainWindow *const window : context.window.editor().windows())
        if (!window->close())
            return;
}

} // namespace

std::vector<ActionGroup> fileActions()
{
    std::vector<Action> files = {
        {QStringLiteral("file.new"),
         Text::tr("&New"),
         {QKeySequence::New},
         [](const ActionContext &context) { context.window.editor().showNew(); }},
        {QStringLiteral("file.newFrom"),
         Text::tr("New from &tracks..."),
         {QKeySequence(QStringLiteral("Ctrl+Shift+N"))},
         newFromTemplate},
        {QStringLiteral("file.open"), Text::tr("&Open..."), {QKeySequence::Open}, open},
        {QStringLiteral("file.openRecent"),
         Text::tr("Open &recent..."),
         {},
         openRecent,
         [](const ActionContext &context) {
             return !context.window.editor().recentFiles().isEmpty();
         }},
    };
    std::vector<Action> saving = {
        {QStringLiteral("file.save"),
         Text::tr("&Save"),
         {QKeySequence::Save},
         [](const ActionContext &context) { context.window.save(); },
         [](const ActionContext &context) {
             return context.document.isModified() || context.document.path().isEmpty();
         }},
        {QStringLiteral("file.saveAs"),
         Text::tr("Save &as..."),
         {QKeySequence(QStringLiteral("Ctrl+Shift+S"))},
         [](const ActionContext &context) { context.window.saveAs(); }},
        {QStringLiteral("file.export"),
         Text::tr("&Export..."),
         {QKeySequence(QStringLiteral("Ctrl+E"))},
         [](const ActionContext &context) { context.window.exportScore(); }},
    };
    std::vector<Action> printing = {
        {QStringLiteral("file.pageSetup"),
         Text::tr("Pa&ge setup..."),
         {},
         [](const ActionContext &context) { context.window.setUpPage(); }},
        {QStringLiteral("file.preview"),
         Text::tr("Print pre&view..."),
         {},
         [](const ActionContext &context) { context.window.showPreview(); }},
        {QStringLiteral("file.print"),
         Text::tr("&Print..."),
         {QKeySequence::Print},
         [](const ActionContext &context) { context.window.print(); }},
    };
    std::vector<Action> windows = {
        {QStringLiteral("file.newWindow"), Text::tr("New &window"), {}, newWindow},
        {QStringLiteral("file.close"),
         Text::tr("&Close"),
         {QKeySequence::Close},
         [](const ActionContext &context) { context.window.close(); }},
        {QStringLiteral("file.quit"),
         Text::tr("&Quit"),
         {QKeySequence(QStringLiteral("Ctrl+Q"))},
         quit},
    };
    for (auto *const part : {&files, &saving, &printing, &windows})
        for (Action &action : *part)
            action.isAsking = true;
    return {{titles(Menu::File), files},
            {titles(Menu::File), saving},
            {titles(Menu::File), printing},
            {titles(Menu::File), windows}};
}

} // namespace zarn::editor
