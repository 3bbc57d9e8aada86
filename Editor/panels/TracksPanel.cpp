// SPDX-License-Identifier: MIT
#include "panels/TracksPanel.h"

#include "actions/ActionSet.h"
#include "app/MainWindow.h"
#include "document/Document.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace zarn::editor {
namespace {

enum Column { Name, ShortName, Instrument, Notation, Tablature, Slashes, Mute, Solo, ColumnCount };

bool isSwitch(int column)
{
    return column >= Notation;
}

} // namespace

TracksPanel::TracksPanel(const ActionContext &context)
    : Panel(context), _table(new QTableWidget(0, ColumnCount))
{
    auto *const all = new QHBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(_table, 1);
    auto *const buttons = new QVBoxLayout;
    const auto addButton = [&](const QString &text, auto slot) {
        auto *const button = new QToolButton;
        button->setText(text);
        button->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
        connect(button, &QToolButton::clicked, this, slot);
        buttons->addWidget(button);
    };
    addButton(tr("Add..."), [this] { triggerAdd(); });
    addButton(tr("Remove"), [this] { remove(); });
    addButton(tr("Up"), [this] { move(-1); });
    addButton(tr("Down"), [this] { move(1); });
    buttons->addStretch();
    all->addLayout(buttons);

    _table->setHorizontalHeaderLabels({tr("Name"), tr("Short name"), tr("Instrument"),
                                       tr("Notation"), tr("Tablature"), tr("Slashes"), tr("Mute"),
                                       tr("Solo")});
    _table->horizontalHeader()->setSectionResizeMode(Name, QHeaderView::Stretch);
    _table->verticalHeader()->setDefaultSectionSize(_table->fontMetrics().height() + 8);
    _table->horizontalHeader()->setMinimumSectionSize(40);
    for (int column = ShortName; column < ColumnCount; ++column)
        _table->horizontalHeader()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    _table->setSelectionBehavior(QAbstractItemView::SelectRows);
    _table->setSelectionMode(QAbstractItemView::SingleSelection);
    _table->setAccessibleName(tr("Tracks"));
    connect(_table, &QTableWidget::cellChanged, this, &TracksPanel::change);
    connect(_table, &QTableWidget::currentCellChanged, this, [this](int row) { goTo(row); });
    // Who points at a track writes into it next; names are edited by a double click, and the Tab
    // key still comes here.
    _table->setFocusPolicy(Qt::TabFocus);
    connect(_table, &QTableWidget::cellClicked, this, &TracksPanel::leave);
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
        // What stays is left alone: the table would measure all of its columns anew.
        item->setText(QString::fromStdString(text));
        Qt::ItemFlags flags = item->flags();
        flags.setFlag(Qt::ItemIsEditable, isEditable);
        flags.setFlag(Qt::ItemIsUserCheckable, isSwitch(column));
        if (flags != item->flags())
            item->setFlags(flags);
    };
    for (int row = 0; row < _table->rowCount(); ++row) {
        const Track &track = *tracks[static_cast<std::size_t>(row)];
        show(row, Name, track.name(), true);
        show(row, ShortName, track.shortName(), true);
        show(row, Instrument, InstrumentSet::typeName(track.type()), false);
        const TrackNotations notations = track.notations();
        const bool switches[] = {notations.standard, notations.tablature, notations.slash,
                                 track.playback() == TrackPlayback::Mute,
                                 track.playback() == TrackPlayback::Solo};
        for (int column = Notation; column < ColumnCount; ++column) {
            show(row, column, {}, false);
            QTableWidgetItem &item = *_table->item(row, column);
            item.setCheckState(switches[column - Notation] ? Qt::Checked : Qt::Unchecked);
        }
    }
    if (_table->currentRow() != document().cursor().trackIndex())
        _table->setCurrentCell(document().cursor().trackIndex(), Name);
}

void TracksPanel::change(int row, int column)
{
    if (_isFollowing)
        return;
    const auto track = static_cast<unsigned>(row);
    const QTableWidgetItem &item = *_table->item(row, column);
    if (isSwitch(column))
        turn(track, column, item.checkState() == Qt::Checked);
    else
        document().edit(tr("Rename track"), [&](Score &score) {
            return column == Name ? score.setTrackName(track, item.text())
                                  : score.setTrackShortName(track, item.text());
        });
    follow(); // what was not possible is shown as it is
}

void TracksPanel::turn(unsigned track, int column, bool isOn)
{
    const QString title = _table->horizontalHeaderItem(column)->text();
    document().edit(title, [&](Score &score) {
        if (column == Mute || column == Solo) {
            const TrackPlayback wanted = column == Mute ? TrackPlayback::Mute : TrackPlayback::Solo;
            return score.setTrackPlayback(track, isOn ? wanted : TrackPlayback::Normal);
        }
        TrackNotations notations = document().model().track(track)->notations();
        bool &part = column == Notation ? notations.standard
            : column == Tablature       ? notations.tablature
                                        : notations.slash;
        part = isOn;
        return score.setTrackNotations(track, notations);
    });
}

void TracksPanel::goTo(int row)
{
    if (!_isFollowing && row >= 0)
        document().moveCursor(
            [row](ScoreCursor &cursor) { return cursor.to(CursorStep::Track, row); });
}

void TracksPanel::triggerAdd()
{
    if (QAction *const add = context().window.actions().find(QStringLiteral("track.add")))
        add->trigger();
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
