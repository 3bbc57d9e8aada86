// SPDX-License-Identifier: MIT
#include "panels/TracksPanel.h"

#include "document/Document.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QHBoxLayout>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace zarn::editor {
namespace {

enum Column { Name, ShortName, Instrument, ColumnCount };

} // namespace

TracksPanel::TracksPanel(const ActionContext &context)
    : Panel(context), _table(new QTableWidget(0, ColumnCount))
{
    auto *const all = new QHBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(_table);
    auto *const buttons = new QVBoxLayout;
    const auto addButton = [&](const QString &text, auto slot) {
        auto *const button = new QToolButton;
        button->setText(text);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        connect(button, &QToolButton::clicked, this, slot);
        buttons->addWidget(button);
    };
    addButton(tr("Remove"), [this] { remove(); });
    addButton(tr("Up"), [this] { move(-1); });
    addButton(tr("Down"), [this] { move(1); });
    buttons->addStretch();
    all->addLayout(buttons);

    _table->setHorizontalHeaderLabels({tr("Name"), tr("Short name"), tr("Instrument")});
    _table->horizontalHeader()->setSectionResizeMode(Name, QHeaderView::Stretch);
    _table->verticalHeader()->setDefaultSectionSize(_table->fontMetrics().height() + 8);
    _table->setSelectionBehavior(QAbstractItemView::SelectRows);
    _table->setSelectionMode(QAbstractItemView::SingleSelection);
    _table->setAccessibleName(tr("Tracks"));
    connect(_table, &QTableWidget::cellChanged, this, &TracksPanel::rename);
    connect(_table, &QTableWidget::currentCellChanged, this, [this](int row) { goTo(row); });
}

TracksPanel::~TracksPanel() = default;

void TracksPanel::follow()
{
    const QScopedValueRollback<bool> following(_isFollowing, true);
    const auto &tracks = document().model().tracks();
    _table->setRowCount(static_cast<int>(tracks.size()));
    const auto show = [this](int row, int column, const std::string &text, bool isEditable) {
        QTableWidgetItem *item = _table->item(row, column);
        if (item == nullptr) {
            item = new QTableWidgetItem;
            _table->setItem(row, column, item);
        }
        item->setText(QString::fromStdString(text));
        item->setFlags(isEditable ? item->flags() | Qt::ItemIsEditable
                                  : item->flags() & ~Qt::ItemIsEditable);
    };
    for (int row = 0; row < _table->rowCount(); ++row) {
        const Track &track = *tracks[static_cast<std::size_t>(row)];
        show(row, Name, track.name(), true);
        show(row, ShortName, track.shortName(), true);
        show(row, Instrument, InstrumentSet::typeName(track.type()), false);
    }
    if (_table->currentRow() != document().cursor().trackIndex())
        _table->setCurrentCell(document().cursor().trackIndex(), Name);
}

void TracksPanel::rename(int row, int column)
{
    if (_isFollowing)
        return;
    const QString text = _table->item(row, column)->text();
    const auto track = static_cast<unsigned>(row);
    document().edit(tr("Rename track"), [&](Score &score) {
        return column == Name ? score.setTrackName(track, text)
                              : score.setTrackShortName(track, text);
    });
}

void TracksPanel::goTo(int row)
{
    if (!_isFollowing && row >= 0)
        document().moveCursor(
            [row](ScoreCursor &cursor) { return cursor.to(CursorStep::Track, row); });
}

int TracksPanel::currentTrack() const
{
    return _table->currentRow();
}

void TracksPanel::remove()
{
    const int track = currentTrack();
    if (track >= 0)
        document().edit(tr("Remove track"), [track](Score &score) {
            return score.removeTrack(static_cast<unsigned>(track));
        });
}

void TracksPanel::move(int step)
{
    const int track = currentTrack();
    const int target = track + step;
    if (track < 0 || target < 0 || target >= _table->rowCount())
        return;
    document().edit(tr("Move track"), [&](Score &score) {
        return score.moveTrack(static_cast<unsigned>(track), static_cast<unsigned>(target));
    });
    document().moveCursor(
        [target](ScoreCursor &cursor) { return cursor.to(CursorStep::Track, target); });
}

} // namespace zarn::editor
