// SPDX-License-Identifier: MIT
#include "actions/ActionTable.h"
#include "actions/Menus.h"
#include "app/Appearance.h"
#include "app/Editor.h"
#include "app/MainWindow.h"
#include "app/ScoreView.h"
#include "document/Document.h"
#include "panels/PanelTable.h"

#include <QCoreApplication>
#include <QDockWidget>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(ViewActions)
};

constexpr double zoomStep = 1.25;

template <bool IsIn>
void zoom(const ActionContext &context)
{
    context.view.setZoomPolicy(ZoomPolicy::Free);
    context.view.zoomBy(IsIn ? zoomStep : 1 / zoomStep,
                        QRectF(context.view.viewport()->rect()).center());
}

void zoomTo(const ActionContext &context)
{
    constexpr int percent = 100;
    constexpr int least = 10;
    constexpr int most = 1600;
    const auto chosen = context.window.editor().questions().askNumber(
        &context.window, Text::tr("Percent of the size on paper:"),
        qRound(context.view.zoom() * percent), least, most);
    if (!chosen)
        return;
    context.view.setZoomPolicy(ZoomPolicy::Free);
    context.view.setZoom(static_cast<double>(*chosen) / percent);
}

Action zoomPolicy(const char *id, const QString &text, const char *keys, ZoomPolicy policy)
{
    return {QLatin1String(id),
            text,
            {QKeySequence(QLatin1String(keys))},
            [policy](const ActionContext &context) { context.view.setZoomPolicy(policy); },
            nullptr,
            KeyScope::Window,
            [policy](const ActionContext &context) { return context.view.zoomPolicy() == policy; }};
}

Action layout(const char *id, const QString &text, ViewLayout view)
{
    return {QLatin1String(id),
            text,
            {},
            [view](const ActionContext &context) {
                auto options = context.view.layouts().options();
                options.view = view;
                context.view.layouts().setOptions(options);
            },
            nullptr,
            KeyScope::Window,
            [view](const ActionContext &context) {
                return context.view.layouts().options().view == view;
            }};
}

/// One track alone, or all of them.
void showTrack(const ActionContext &context)
{
    auto options = context.view.layouts().options();
    if (options.tracks.empty() && context.document.cursor().trackIndex() >= 0)
        options.tracks = {static_cast<unsigned>(context.document.cursor().trackIndex())};
    else
        options.tracks.clear();
    context.view.layouts().setOptions(options);
}

Action look(const char *id, const QString &text, Appearance wanted)
{
    Action action;
    action.id = QLatin1String(id);
    action.text = text;
    action.run = [wanted](const ActionContext &) { setAppearance(wanted); };
    action.isChecked = [wanted](const ActionContext &) { return appearance() == wanted; };
    action.isAsking = true; // of the settings
    return action;
}

std::vector<Action> panelActions()
{
    std::vector<Action> actions;
    for (const PanelRow &row : panelTable()) {
        const auto dockOf = [id = row.id](const ActionContext &context) {
            return context.window.findChild<QDockWidget *>(id);
        };
        actions.push_back(
            {QStringLiteral("view.panel.") + row.id,
             row.title,
             {},
             [dockOf](const ActionContext &context) {
                 QDockWidget *const dock = dockOf(context);
                 dock->setVisible(dock->isHidden());
                 dock->raise();
             },
             nullptr,
             KeyScope::Window,
             [dockOf](const ActionContext &context) { return !dockOf(context)->isHidden(); }});
    }
    return actions;
}

} // namespace

std::vector<ActionGroup> viewActions()
{
    const std::vector<Action> layouts = {
        layout("view.pages", Text::tr("&Pages"), ViewLayout::Pages),
        layout("view.continuous", Text::tr("&One long page"), ViewLayout::Continuous),
        layout("view.singleLine", Text::tr("One &line"), ViewLayout::SingleLine),
        {QStringLiteral("view.oneTrack"),
         Text::tr("This &track alone"),
         {QKeySequence(QStringLiteral("F8"))},
         showTrack,
         nullptr,
         KeyScope::Window,
         [](const ActionContext &context) {
             return !context.view.layouts().options().tracks.empty();
         }},
    };
    Action chosenZoom;
    chosenZoom.id = QStringLiteral("view.zoomTo");
    chosenZoom.text = Text::tr("&Zoom to...");
    chosenZoom.run = zoomTo;
    chosenZoom.isAsking = true;
    const std::vector<Action> zooms = {
        {QStringLiteral("view.zoomIn"),
         Text::tr("Zoom &in"),
         {QKeySequence(QStringLiteral("Ctrl++")), QKeySequence(QStringLiteral("Ctrl+="))},
         zoom<true>},
        {QStringLiteral("view.zoomOut"),
         Text::tr("Zoom &out"),
         {QKeySequence(QStringLiteral("Ctrl+-"))},
         zoom<false>},
        {QStringLiteral("view.zoomActual"),
         Text::tr("As on pa&per"),
         {QKeySequence(QStringLiteral("Ctrl+0"))},
         [](const ActionContext &context) {
             context.view.setZoomPolicy(ZoomPolicy::Free);
             context.view.setZoom(1);
         }},
        chosenZoom,
        zoomPolicy("view.fitWidth", Text::tr("Fit the &width"), "Ctrl+1", ZoomPolicy::Width),
        zoomPolicy("view.fitHeight", Text::tr("Fit the &height"), "Ctrl+2", ZoomPolicy::Height),
        zoomPolicy("view.fitPage", Text::tr("Fit the pa&ge"), "Ctrl+3", ZoomPolicy::Page),
    };
    const std::vector<Action> looks = {
        look("view.systemLook", Text::tr("&As the system"), Appearance::System),
        look("view.light", Text::tr("&Light"), Appearance::Light),
        look("view.dark", Text::tr("&Dark"), Appearance::Dark),
    };
    return {{titles(Menu::View), layouts},
            {titles(Menu::View), zooms},
            {titles(Menu::View, Text::tr("&Panels")), panelActions()},
            {titles(Menu::View, Text::tr("&Appearance")), looks}};
}

} // namespace zarn::editor
