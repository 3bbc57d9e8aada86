// SPDX-License-Identifier: MIT
#include "panels/SectionsPanel.h"

#include "document/Document.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreCursor.h>

#include <QListWidget>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include <algorithm>

namespace zarn::editor {
namespace {

constexpr int barRole = Qt::UserRole;
constexpr int widthOfBar = 8; // pixels

} // namespace

SectionsPanel::SectionsPanel(const ActionContext &context) : Panel(context), _list(new QListWidget)
{
    auto *const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(_list);
    _list->setFlow(QListView::LeftToRight);
    _list->setWrapping(true);
    _list->setResizeMode(QListView::Adjust);
    _list->setSpacing(2);
    constexpr int rows = 2; // more of them scroll
    const int rowHeight = _list->fontMetrics().height() + 20;
    _list->setMinimumHeight(rowHeight);
    _list->setMaximumHeight(rows * rowHeight);
    _list->setAccessibleName(tr("Sections"));
    connect(_list, &QListWidget::currentRowChanged, this, &SectionsPanel::goTo);
}

SectionsPanel::~SectionsPanel() = default;

void SectionsPanel::follow()
{
    const QScopedValueRollback<bool> following(_isFollowing, true);
    const auto &bars = document().model().masterTrack()->masterBars();
    std::vector<int> starts = {0};
    for (int bar = 1; bar < static_cast<int>(bars.size()); ++bar)
        if (bars[static_cast<std::size_t>(bar)]->hasSection())
            starts.push_back(bar);
    _list->clear();
    const int cursor = document().cursor().barIndex();
    for (std::size_t i = 0; i < starts.size() && !bars.empty(); ++i) {
        const int end = i + 1 < starts.size() ? starts[i + 1] : static_cast<int>(bars.size());
        const Section &section = bars[static_cast<std::size_t>(starts[i])]->section();
        QStringList words;
        for (const std::string *const word : {&section.letter, &section.text})
            if (!word->empty())
                words << QString::fromStdString(*word);
        words << tr("bars %1 to %2").arg(starts[i] + 1).arg(end);
        auto *const item = new QListWidgetItem(words.join(QStringLiteral("  ")), _list);
        item->setData(barRole, starts[i]);
        item->setTextAlignment(Qt::AlignCenter);
        const QSize least =
            item->sizeHint().expandedTo(_list->fontMetrics().size(0, item->text()) + QSize(16, 12));
        item->setSizeHint(
            {std::max(least.width(), (end - starts[i]) * widthOfBar), least.height()});
        item->setBackground(palette().alternateBase());
        if (cursor >= starts[i] && cursor < end)
            _list->setCurrentItem(item);
    }
}

void SectionsPanel::goTo(int row)
{
    if (_isFollowing || row < 0)
        return;
    const int bar = _list->item(row)->data(barRole).toInt();
    document().moveCursor([bar](ScoreCursor &cursor) { return cursor.to(CursorStep::Bar, bar); });
}

} // namespace zarn::editor
