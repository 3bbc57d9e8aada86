// SPDX-License-Identifier: MIT
#include "panels/PanelTable.h"

#include "panels/AutomationsPanel.h"
#include "panels/ChordsPanel.h"
#include "panels/FretboardPanel.h"
#include "panels/MixerPanel.h"
#include "panels/PropertiesPanel.h"
#include "panels/SectionsPanel.h"
#include "panels/SoundsPanel.h"
#include "panels/TracksPanel.h"
#include "panels/TuningPanel.h"

#include <QCoreApplication>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(PanelTable)
};

template <class Kind>
std::unique_ptr<Panel> make(const ActionContext &context)
{
    return std::make_unique<Kind>(context);
}

} // namespace

const std::vector<PanelRow> &panelTable()
{
    static const std::vector<PanelRow> table = {
        {QStringLiteral("tracks"), Text::tr("Tracks"), Qt::BottomDockWidgetArea, true,
         make<TracksPanel>},
        {QStringLiteral("mixer"), Text::tr("Mixer"), Qt::BottomDockWidgetArea, false,
         make<MixerPanel>},
        {QStringLiteral("sections"), Text::tr("Sections"), Qt::TopDockWidgetArea, false,
         make<SectionsPanel>},
        {QStringLiteral("properties"), Text::tr("Properties"), Qt::RightDockWidgetArea, true,
         make<PropertiesPanel>},
        {QStringLiteral("fretboard"), Text::tr("Fretboard"), Qt::BottomDockWidgetArea, false,
         make<FretboardPanel>},
        {QStringLiteral("chords"), Text::tr("Chords"), Qt::RightDockWidgetArea, false,
         make<ChordsPanel>},
        {QStringLiteral("sounds"), Text::tr("Sounds and effects"), Qt::RightDockWidgetArea, false,
         make<SoundsPanel>},
        {QStringLiteral("automations"), Text::tr("Automation"), Qt::BottomDockWidgetArea, false,
         make<AutomationsPanel>},
        {QStringLiteral("tuning"), Text::tr("Tuning"), Qt::RightDockWidgetArea, false,
         make<TuningPanel>},
    };
    return table;
}

} // namespace zarn::editor
