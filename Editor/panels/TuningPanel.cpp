// SPDX-License-Identifier: MIT
#include "panels/TuningPanel.h"

#include "document/Document.h"
#include "panels/PitchBox.h"
#include "panels/PitchText.h"

#include <ZarnCore/ZarnCore.h>
#include <ZarnCore/commands/Track/ZarnSetGuitarFullTuning.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMetaEnum>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QSpinBox>

#include <algorithm>

namespace zarn::editor {
namespace {

constexpr int mostStrings = cmd::SetGuitarFullTuning::MostStrings;

QString instrumentName(GuitarTuning::Instrument instrument)
{
    if (instrument == GuitarTuning::Undefined)
        return TuningPanel::tr("Other");
    return QString::fromLatin1(
        QMetaEnum::fromType<GuitarTuning::Instrument>().valueToKey(static_cast<int>(instrument)));
}

QLabel *captionOf(const QString &text, QWidget *field)
{
    auto *const caption = new QLabel(text);
    caption->setBuddy(field);
    return caption;
}

} // namespace

TuningPanel::TuningPanel(const ActionContext &context)
    : Panel(context), _instrument(new QComboBox), _filter(new QLineEdit), _list(new QListWidget),
      _stringGrid(new QGridLayout), _capo(new QSpinBox),
      _keepPitches(new QRadioButton(tr("Keep the &pitches of the notes"))),
      _keepFrets(new QRadioButton(tr("Keep their &frets"))), _apply(new QPushButton(tr("&Tune")))
{
    auto *const all = new QGridLayout(this);
    all->addWidget(captionOf(tr("&Instrument:"), _instrument), 0, 0);
    all->addWidget(_instrument, 0, 1);
    all->addWidget(captionOf(tr("S&earch:"), _filter), 1, 0);
    all->addWidget(_filter, 1, 1);
    all->addWidget(_list, 2, 0, 1, 2);
    all->addLayout(_stringGrid, 3, 0, 1, 2);
    all->addWidget(captionOf(tr("&Capo at fret:"), _capo), 4, 0);
    all->addWidget(_capo, 4, 1);
    all->addWidget(_keepPitches, 5, 0, 1, 2);
    all->addWidget(_keepFrets, 6, 0, 1, 2);
    all->addWidget(_apply, 7, 0, 1, 2);
    all->setRowStretch(2, 1);

    _list->setAccessibleName(tr("Tunings"));
    _filter->setClearButtonEnabled(true);
    _filter->setPlaceholderText(tr("Drop D, E2 A2"));
    _capo->setSpecialValueText(tr("none"));
    _keepPitches->setChecked(true);
    for (const auto instrument : Core::instance().tuningLibrary().instruments())
        _instrument->addItem(instrumentName(instrument), static_cast<unsigned>(instrument));

    connect(_instrument, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &TuningPanel::listTunings);
    connect(_filter, &QLineEdit::textChanged, this, &TuningPanel::listTunings);
    connect(_list, &QListWidget::currentRowChanged, this, &TuningPanel::chooseListed);
    connect(_list, &QListWidget::itemActivated, this, &TuningPanel::apply);
    connect(_capo, QOverload<int>::of(&QSpinBox::valueChanged), this, &TuningPanel::showButtons);
    connect(_apply, &QPushButton::clicked, this, &TuningPanel::apply);
}

TuningPanel::~TuningPanel() = default;

void TuningPanel::follow()
{
    const Staff *const staff = document().cursor().findStaff();
    const bool isFretted = staff != nullptr && staff->isFretted();
    const QString shown = !isFretted ? QString()
                                     : QStringLiteral("%1/%2 ")
                                           .arg(document().cursor().trackIndex())
                                           .arg(document().cursor().staffIndex())
            + neckKey(*staff);
    // What is chosen and not yet applied stays while only notes change.
    if (shown == _shownNeck && !shown.isEmpty())
        return;
    _shownNeck = shown;
    const QScopedValueRollback<bool> filling(_isFilling, true);
    setEnabled(isFretted);
    if (!isFretted) {
        _list->clear();
        showStrings({});
        return;
    }
    const int row = _instrument->findData(static_cast<unsigned>(staff->tuning().instrument()));
    if (row >= 0)
        _instrument->setCurrentIndex(row);
    _capo->setMaximum(static_cast<int>(staff->fretCount()));
    _capo->setValue(static_cast<int>(staff->capoFret()));
    showStrings(staff->tuning());
    listTunings();
}

/// The tunings of the instrument that the search leaves, those with as many strings first; what the
/// strings have now is marked.
void TuningPanel::listTunings()
{
    const QScopedValueRollback<bool> filling(_isFilling, true);
    _list->clear();
    _listed.clear();
    const auto instrument =
        static_cast<GuitarTuning::Instrument>(_instrument->currentData().toUInt());
    const QString words = _filter->text().simplified();
    auto tunings =
        Core::instance().tuningLibrary().getTunings(instrument, GuitarTuningLibrary::allRoles);
    std::stable_partition(tunings.begin(), tunings.end(), [this](const auto &tuning) {
        return tuning->stringCount() == _chosen.stringCount();
    });
    for (const auto &tuning : tunings) {
        if (tuning->stringCount() > mostStrings)
            continue;
        const QString text = QStringLiteral("%1: %2").arg(QString::fromStdString(tuning->name()),
                                                          stringsText(*tuning));
        if (!text.contains(words, Qt::CaseInsensitive))
            continue;
        _listed.push_back(tuning);
        _list->addItem(text);
        if (tuning->midiNumbers() == _chosen.midiNumbers() && _list->currentRow() < 0)
            _list->setCurrentRow(_list->count() - 1);
    }
    _list->scrollToItem(_list->currentItem());
    showButtons();
}

void TuningPanel::chooseListed(int row)
{
    if (_isFilling || row < 0)
        return;
    showStrings(*_listed[static_cast<std::size_t>(row)]);
    showButtons();
}

/// A field for each string, the highest on top as on a tablature.
void TuningPanel::showStrings(const GuitarTuning &tuning)
{
    const QScopedValueRollback<bool> filling(_isFilling, true);
    _chosen = tuning;
    const auto count = static_cast<std::size_t>(tuning.stringCount());
    if (count != _strings.size()) {
        while (QLayoutItem *const item = _stringGrid->takeAt(0)) {
            delete item->widget();
            delete item;
        }
        _strings.clear();
        for (std::size_t string = 0; string < count; ++string) {
            auto *const box = new PitchBox;
            const int number = static_cast<int>(count - string);
            box->setAccessibleName(tr("String %1").arg(number));
            connect(box, QOverload<int>::of(&QSpinBox::valueChanged), this,
                    &TuningPanel::showButtons);
            _stringGrid->addWidget(captionOf(QString::number(number), box), (number - 1) / 2,
                                   (number - 1) % 2 * 2);
            _stringGrid->addWidget(box, (number - 1) / 2, (number - 1) % 2 * 2 + 1);
            _strings.push_back(box);
        }
    }
    for (std::size_t string = 0; string < count; ++string) {
        _strings[string]->setPrefersFlats(prefersFlats(tuning));
        _strings[string]->setValue(tuning.tuning(static_cast<unsigned>(string)));
    }
}

GuitarTuning TuningPanel::asked() const
{
    GuitarTuning tuning = _chosen;
    std::vector<int> pitches;
    for (const PitchBox *const box : _strings)
        pitches.push_back(box->value());
    if (pitches == tuning.midiNumbers())
        return tuning;
    tuning.setMidiNumbers(pitches);
    tuning.setName(Core::instance().tuningLibrary().tuningDisplayName(tuning).toStdString());
    return tuning;
}

void TuningPanel::showButtons()
{
    const Staff *const staff = document().cursor().findStaff();
    const bool isOther = staff != nullptr
        && (asked().midiNumbers() != staff->tuning().midiNumbers()
            || asked().hasShortDroneString() != staff->hasShortDroneString()
            || _capo->value() != static_cast<int>(staff->capoFret()));
    _apply->setEnabled(isOther && !_strings.empty());
}

void TuningPanel::apply()
{
    if (!_apply->isEnabled())
        return;
    const ScoreModelIndex place = document().cursor();
    const auto capo = static_cast<unsigned>(_capo->value());
    const Retuning retuning =
        _keepPitches->isChecked() ? Retuning::KeepPitches : Retuning::KeepFrets;
    const GuitarTuning tuning = asked();
    const bool isDone = document().edit(
        tr("Tune to %1").arg(QString::fromStdString(tuning.name())), [&](Score &score) {
            return score.setGuitarFullTuning(static_cast<unsigned>(place.trackIndex()),
                                             place.staffIndex(), tuning, capo, retuning);
        });
    if (!isDone)
        Q_EMIT document().refused(tr("This tuning is not possible with this capo."));
}

} // namespace zarn::editor
