// SPDX-License-Identifier: MIT
#include "dialogs/NewScoreDialog.h"

#include "document/NewScore.h"
#include "document/Templates.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QComboBox>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>

namespace zarn::editor {
namespace {

constexpr int placeRole = Qt::UserRole;

QSpinBox *spinBox(int least, int most, int value)
{
    auto *const box = new QSpinBox;
    box->setRange(least, most);
    box->setValue(value);
    return box;
}

} // namespace

NewScoreDialog::NewScoreDialog(QWidget *parent)
    : QDialog(parent), _title(new QLineEdit), _instrument(new QComboBox), _tracks(new QListWidget),
      _bars(spinBox(1, 1000, 16)), _tempo(spinBox(10, 400, 120))
{
    setWindowTitle(tr("New score"));
    for (const TrackTemplate &made : trackTemplates())
        _instrument->addItem(made.name);
    constexpr int steelGuitar = 25;
    _instrument->setCurrentIndex(steelGuitar);
    _tracks->setAccessibleName(tr("Tracks"));
    auto *const add = new QPushButton(tr("&Add"));
    auto *const remove = new QPushButton(tr("&Remove"));
    connect(add, &QPushButton::clicked, this, [this] { addTrack(_instrument->currentIndex()); });
    connect(remove, &QPushButton::clicked, this,
            [this] { delete _tracks->takeItem(_tracks->currentRow()); });

    auto *const form = new QFormLayout(this);
    auto *const choice = new QHBoxLayout;
    choice->addWidget(_instrument, 1);
    choice->addWidget(add);
    choice->addWidget(remove);
    form->addRow(tr("&Title"), _title);
    form->addRow(tr("&Instrument"), choice);
    form->addRow(tr("Tracks"), _tracks);
    form->addRow(tr("&Bars"), _bars);
    form->addRow(tr("Quarters per &minute"), _tempo);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
}

NewScoreDialog::~NewScoreDialog() = default;

void NewScoreDialog::addTrack(int place)
{
    auto *const item = new QListWidgetItem(_instrument->itemText(place), _tracks);
    item->setData(placeRole, place);
    _tracks->setCurrentItem(item);
}

std::shared_ptr<ScoreModel> NewScoreDialog::score() const
{
    NewScoreSettings settings;
    for (int row = 0; row < _tracks->count(); ++row) {
        const int place = _tracks->item(row)->data(placeRole).toInt();
        if (auto track = makeTrack(trackTemplates()[static_cast<std::size_t>(place)]))
            settings.tracks.push_back(std::move(track));
    }
    settings.bars = static_cast<unsigned>(_bars->value());
    settings.tempo = _tempo->value();
    settings.title = _title->text();
    return newScore(std::move(settings));
}

} // namespace zarn::editor
