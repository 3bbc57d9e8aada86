// SPDX-License-Identifier: MIT
#include "dialogs/NewScoreDialog.h"

#include "document/NewScore.h"
#include "document/Signatures.h"
#include "document/Templates.h"
#include "panels/PitchText.h"

#include <ZarnCore/ZarnCore.h>
#include <ZarnCore/commands/Track/ZarnSetGuitarFullTuning.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>

#include <algorithm>

namespace zarn::editor {
namespace {

using Tunings = std::vector<GuitarTuning>;

QSpinBox *spinBox(int least, int most, int value)
{
    auto *const box = new QSpinBox;
    box->setRange(least, most);
    box->setValue(value);
    return box;
}

std::shared_ptr<Track> trackAt(int place)
{
    return makeTrack(trackTemplates()[static_cast<std::size_t>(place)]);
}

const Staff *strungStaffOf(const Track &track)
{
    return track.isFretted() ? track.staff(0).get() : nullptr;
}

/// The tunings of the catalogue for a staff, its own one first, then those with as many strings.
Tunings tuningsFor(const Staff &staff)
{
    const GuitarTuningLibrary &library = Core::instance().tuningLibrary();
    const GuitarTuning &own = staff.tuning();
    Tunings all = {own};
    all.front().setName(library.tuningDisplayName(own).toStdString());
    auto listed = library.getTunings(own.instrument(), GuitarTuningLibrary::allRoles);
    std::stable_partition(listed.begin(), listed.end(), [&own](const auto &tuning) {
        return tuning->stringCount() == own.stringCount();
    });
    for (const auto &tuning : listed)
        if (tuning->stringCount() <= cmd::SetGuitarFullTuning::MostStrings
            && tuning->midiNumbers() != own.midiNumbers())
            all.push_back(*tuning);
    return all;
}

} // namespace

NewScoreDialog::NewScoreDialog(QWidget *parent)
    : QDialog(parent), _title(new QLineEdit), _instrument(new QComboBox), _tuning(new QComboBox),
      _capo(spinBox(0, 0, 0)), _list(new QListWidget), _beats(spinBox(1, mostBeatsOfBar, 4)),
      _unit(new QComboBox), _key(new QComboBox), _bars(spinBox(1, 1000, 16)),
      _tempo(spinBox(10, 400, 120))
{
    setWindowTitle(tr("New score"));
    for (const TrackTemplate &made : trackTemplates())
        _instrument->addItem(made.name);
    _tuning->setObjectName(QStringLiteral("tuning"));
    _tuning->setMinimumContentsLength(32);
    _tuning->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    _capo->setObjectName(QStringLiteral("capo"));
    _capo->setSpecialValueText(tr("none"));
    _list->setAccessibleName(tr("Tracks"));
    _list->setMinimumHeight(_list->fontMetrics().height() * 5);
    _unit->addItems(beatUnitTexts());
    _unit->setCurrentIndex(2);
    _unit->setAccessibleName(tr("Beat unit"));
    _key->addItems(keyTexts());
    _key->setCurrentIndex(placeOfKey(KeySignature(0, true)));
    auto *const add = new QPushButton(tr("&Add"));
    auto *const remove = new QPushButton(tr("&Remove"));
    for (QPushButton *const button : {add, remove})
        button->setAutoDefault(false);
    remove->setEnabled(false);
    connect(_instrument, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &NewScoreDialog::listTunings);
    connect(add, &QPushButton::clicked, this, &NewScoreDialog::addTrack);
    connect(_list, &QListWidget::currentRowChanged, remove,
            [remove](int row) { remove->setEnabled(row >= 0); });
    connect(remove, &QPushButton::clicked, this, [this] {
        const int row = _list->currentRow();
        if (row < 0)
            return;
        _tracks.erase(_tracks.begin() + row);
        delete _list->takeItem(row);
    });

    auto *const form = new QFormLayout(this);
    auto *const buttonsOfList = new QHBoxLayout;
    buttonsOfList->addWidget(add);
    buttonsOfList->addWidget(remove);
    buttonsOfList->addStretch();
    auto *const meter = new QHBoxLayout;
    meter->addWidget(_beats);
    meter->addWidget(new QLabel(QString::fromUtf8("×")));
    meter->addWidget(_unit);
    meter->addStretch();
    form->addRow(tr("&Title"), _title);
    form->addRow(tr("&Instrument"), _instrument);
    form->addRow(tr("T&uning"), _tuning);
    form->addRow(tr("&Capo at fret"), _capo);
    form->addRow(QString(), buttonsOfList);
    form->addRow(tr("Tracks"), _list);
    auto *const meterCaption = new QLabel(tr("M&eter"));
    meterCaption->setBuddy(_beats);
    form->addRow(meterCaption, meter);
    form->addRow(tr("&Key"), _key);
    form->addRow(tr("&Bars"), _bars);
    form->addRow(tr("Quarters per &minute"), _tempo);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
    constexpr int steelGuitar = 25;
    chooseInstrument(steelGuitar);
    listTunings();
}

NewScoreDialog::~NewScoreDialog() = default;

void NewScoreDialog::chooseInstrument(int place)
{
    _instrument->setCurrentIndex(place);
}

void NewScoreDialog::listTunings()
{
    const auto track = trackAt(_instrument->currentIndex());
    const Staff *const staff = track != nullptr ? strungStaffOf(*track) : nullptr;
    _tuning->clear();
    _tuning->setEnabled(staff != nullptr);
    _capo->setEnabled(staff != nullptr);
    _capo->setValue(0);
    _capo->setMaximum(staff != nullptr ? static_cast<int>(staff->fretCount()) : 0);
    if (staff == nullptr)
        return;
    for (const GuitarTuning &tuning : tuningsFor(*staff))
        _tuning->addItem(QStringLiteral("%1: %2").arg(QString::fromStdString(tuning.name()),
                                                      stringsText(tuning)));
}

NewScoreDialog::Chosen NewScoreDialog::chosen() const
{
    Chosen chosen;
    chosen.place = _instrument->currentIndex();
    chosen.tuning = std::max(_tuning->currentIndex(), 0);
    chosen.capo = static_cast<unsigned>(_capo->value());
    chosen.name = _instrument->currentText();
    if (chosen.tuning > 0)
        chosen.name += QStringLiteral(", ") + _tuning->currentText();
    if (chosen.capo > 0)
        chosen.name += tr(", capo %1").arg(chosen.capo);
    return chosen;
}

void NewScoreDialog::addTrack()
{
    _tracks.push_back(chosen());
    _list->addItem(_tracks.back().name);
    _list->setCurrentRow(_list->count() - 1);
}

NewTrack NewScoreDialog::made(const Chosen &chosen)
{
    NewTrack made{trackAt(chosen.place), std::nullopt, chosen.capo};
    const Staff *const staff = made.track != nullptr ? strungStaffOf(*made.track) : nullptr;
    if (staff != nullptr && (chosen.tuning > 0 || chosen.capo > 0))
        made.tuning = tuningsFor(*staff)[static_cast<std::size_t>(chosen.tuning)];
    return made;
}

std::shared_ptr<ScoreModel> NewScoreDialog::score() const
{
    NewScoreSettings settings;
    for (const Chosen &each : _tracks.empty() ? std::vector<Chosen>{chosen()} : _tracks)
        if (NewTrack track = made(each); track.track != nullptr)
            settings.tracks.push_back(std::move(track));
    settings.bars = static_cast<unsigned>(_bars->value());
    settings.meter = TimeSignature(static_cast<unsigned>(_beats->value()),
                                   beatUnits()[static_cast<std::size_t>(_unit->currentIndex())]);
    settings.key = usualKeys()[static_cast<std::size_t>(_key->currentIndex())];
    settings.tempo = _tempo->value();
    settings.title = _title->text();
    return newScore(std::move(settings));
}

} // namespace zarn::editor
