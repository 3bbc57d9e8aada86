// SPDX-License-Identifier: MIT
#include "panels/ChordsPanel.h"

#include "document/Document.h"
#include "panels/DiagramModel.h"
#include "panels/PitchText.h"

#include <ZarnCore/ZarnCore.h>
#include <ZarnCore/chords/ZarnChordRecognizer.h>
#include <ZarnCore/chords/ZarnFingeringLibrary.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>

#include <algorithm>

namespace zarn::editor {
namespace {

/// Nobody looks through more.
constexpr std::size_t mostShapes = 120;

/// Names for the same notes that are offered.
constexpr std::size_t mostNames = 8;

std::vector<ChordDiagram> shapesFor(const chord::Chord &chord, const Staff &staff)
{
    const chord::Capos capos{staff.capoFret(), staff.partialCapoFret(),
                             staff.partialCapoStringFlags()};
    auto shapes = Core::instance().fingeringLibrary().voicings(chord, staff.tuning(), capos,
                                                               staff.fretCount());
    if (shapes.size() > mostShapes)
        shapes.resize(mostShapes);
    return shapes;
}

QString meaningOf(const chord::Chord &chord)
{
    QStringList tones;
    for (const chord::ChordTone &tone : chord.tones())
        tones << QStringLiteral("%1 (%2)").arg(tone.pitch.symbol(),
                                               QString::fromStdString(tone.degree.toText()));
    return QStringLiteral("<b>%1</b>: %2")
        .arg(QString::fromStdString(chord.toDisplayText()).toHtmlEscaped(),
             tones.join(QStringLiteral(", ")));
}

} // namespace

ChordsPanel::ChordsPanel(const ActionContext &context)
    : Panel(context), _symbol(new QLineEdit), _names(new QComboBox), _meaning(new QLabel),
      _shapes(new QListView), _model(new DiagramModel(this)), _write(new QPushButton(tr("&Write"))),
      _writeSymbol(new QPushButton(tr("Symbol &only"))), _remove(new QPushButton(tr("&Remove"))),
      _own(new QPushButton)
{
    auto *const all = new QGridLayout(this);
    auto *const caption = new QLabel(tr("&Chord:"));
    caption->setBuddy(_symbol);
    all->addWidget(caption, 0, 0);
    all->addWidget(_symbol, 0, 1, 1, 2);
    all->addWidget(_names, 0, 3);
    all->addWidget(_meaning, 1, 0, 1, 4);
    all->addWidget(_shapes, 2, 0, 1, 4);
    all->addWidget(_write, 3, 0);
    all->addWidget(_writeSymbol, 3, 1);
    all->addWidget(_remove, 3, 2);
    all->addWidget(_own, 3, 3);
    all->setRowStretch(2, 1);

    _symbol->setPlaceholderText(tr("Am7, F#m7b5/E"));
    _symbol->setAccessibleName(tr("Chord symbol"));
    _symbol->setClearButtonEnabled(true);
    setFocusProxy(_symbol);
    _names->setAccessibleName(tr("Names of the notes of the beat"));
    _names->setToolTip(tr("What the notes of the beat may be called"));
    _meaning->setWordWrap(true);
    _shapes->setModel(_model);
    _shapes->setItemDelegate(new DiagramDelegate(_shapes));
    _shapes->setViewMode(QListView::IconMode);
    _shapes->setResizeMode(QListView::Adjust);
    _shapes->setMovement(QListView::Static);
    _shapes->setUniformItemSizes(true);
    _shapes->setAccessibleName(tr("Ways to play the chord"));
    _shapes->setMinimumHeight(fontMetrics().height() * 8);
    _write->setToolTip(tr("Writes the symbol with the chosen diagram over the beat"));

    connect(_symbol, &QLineEdit::textChanged, this, [this] {
        showMeaning();
        showShapes();
        showButtons();
    });
    connect(_symbol, &QLineEdit::returnPressed, this, [this] { write(chosenShape() != nullptr); });
    connect(_names, QOverload<int>::of(&QComboBox::activated), this,
            [this](int row) { _symbol->setText(_names->itemText(row)); });
    connect(_shapes, &QListView::activated, this, [this] { write(true); });
    connect(_shapes->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ChordsPanel::showButtons);
    connect(_write, &QPushButton::clicked, this, [this] { write(true); });
    connect(_writeSymbol, &QPushButton::clicked, this, [this] { write(false); });
    connect(_remove, &QPushButton::clicked, this, &ChordsPanel::remove);
    connect(_own, &QPushButton::clicked, this, &ChordsPanel::toggleOwnShape);
}

ChordsPanel::~ChordsPanel() = default;

QString ChordsPanel::symbol() const
{
    return _symbol->text().trimmed();
}

const ChordDiagram *ChordsPanel::chosenShape() const
{
    return _model->diagram(_shapes->currentIndex());
}

void ChordsPanel::follow()
{
    takeSymbolOfBeat();
    nameNotes();
    showMeaning();
    showShapes();
    showButtons();
}

/// The symbol of the beat, when that is another beat or has another symbol than it had; what is
/// being typed stays otherwise.
void ChordsPanel::takeSymbolOfBeat()
{
    const ScoreModelIndex &place = document().cursor();
    const Beat *const beat = place.findBeat();
    const ChordMark mark = beat != nullptr ? beat->chord() : ChordMark();
    ScoreModelIndex here = place;
    here.invalidateNote();
    if (here == _shownBeat && mark == _shownMark)
        return;
    _shownBeat = here;
    _shownMark = mark;
    if (!mark.symbol.empty())
        _symbol->setText(QString::fromStdString(mark.symbol));
}

/// Offers what the notes of the beat may be called.
void ChordsPanel::nameNotes()
{
    _names->clear();
    const ScoreModelIndex &place = document().cursor();
    std::vector<int> pitches;
    const Track *const track = place.findTrack();
    const bool isPitched = track != nullptr && !InstrumentSet::isUnpitched(track->type());
    if (const Beat *const beat = place.findBeat(); beat != nullptr && isPitched)
        for (const auto &note : beat->notes())
            if (note->midi() >= 0)
                pitches.push_back(note->midi());
    const MasterBar *const bar = place.findMasterBar();
    if (bar != nullptr && !pitches.empty()) {
        const auto names = chord::ChordRecognizer(bar->concertKeySignature()).names(pitches);
        for (std::size_t at = 0; at < std::min(names.size(), mostNames); ++at)
            _names->addItem(QString::fromStdString(names[at].chord.toText()));
    }
    _names->setEnabled(_names->count() > 0);
}

void ChordsPanel::showMeaning()
{
    const auto chord = chord::Chord::fromText(symbol().toStdString());
    _meaning->setText(symbol().isEmpty() ? QString()
                          : !chord       ? tr("No chord that is known; it is written as it stands.")
                          : chord->isNone() ? tr("No chord")
                                            : meaningOf(*chord));
}

void ChordsPanel::showShapes()
{
    const Staff *const staff = document().cursor().findStaff();
    const bool isFretted = staff != nullptr && staff->isFretted();
    const QString shown = isFretted ? symbol() + QLatin1Char('\n') + neckKey(*staff) : QString();
    if (shown == _shownShapes)
        return;
    _shownShapes = shown;
    const auto chord = chord::Chord::fromText(symbol().toStdString());
    std::vector<ChordDiagram> shapes;
    if (isFretted && chord && !chord->isNone())
        shapes = shapesFor(*chord, *staff);
    _model->setDiagrams(std::move(shapes),
                        isFretted ? chord::courseSizes(staff->tuning()) : std::vector<unsigned>());
    _shapes->setCurrentIndex(_model->index(0, 0));
}

void ChordsPanel::showButtons()
{
    const ScoreModelIndex &place = document().cursor();
    const bool canWrite = place.isBarValid() && !symbol().isEmpty();
    const ChordDiagram *const shape = chosenShape();
    _write->setEnabled(canWrite && shape != nullptr);
    _writeSymbol->setEnabled(canWrite);
    const Beat *const beat = place.findBeat();
    _remove->setEnabled(beat != nullptr && !beat->chord().isEmpty());
    _own->setEnabled(shape != nullptr);
    _own->setText(shape != nullptr && isOwn(*shape) ? tr("&Forget shape") : tr("&Keep shape"));
    _own->setToolTip(tr("Shapes that you keep come first wherever the chord is played on these "
                        "strings"));
}

void ChordsPanel::write(bool hasDiagram)
{
    const ScoreModelIndex place = document().cursor();
    if (!place.isBarValid() || symbol().isEmpty())
        return;
    ChordMark mark{symbol().toStdString(), nullptr};
    const ChordDiagram *const shape = chosenShape();
    if (hasDiagram && shape != nullptr) {
        auto diagram = std::make_shared<ChordDiagram>(*shape);
        diagram->name = mark.symbol;
        mark.diagram = std::move(diagram);
    }
    document().edit(tr("Chord %1").arg(symbol()), [&](Score &score) {
        return (place.isBeatValid() || score.createBeat(place, document().entry().rhythm))
            && score.setChord(place, mark);
    });
    leave();
}

void ChordsPanel::remove()
{
    document().edit(tr("Remove chord"), [this](Score &score) {
        return score.unsetChord(document().selection().beats(score));
    });
}

bool ChordsPanel::isOwn(const ChordDiagram &shape) const
{
    const auto &own = Core::instance().fingeringLibrary().userShapes();
    const Staff *const staff = document().cursor().findStaff();
    return staff != nullptr
        && std::any_of(own.begin(), own.end(), [&](const chord::UserShape &known) {
               return known.openPitches == staff->tuning().midiNumbers() && known.diagram == shape;
           });
}

void ChordsPanel::toggleOwnShape()
{
    const ChordDiagram *const shape = chosenShape();
    const Staff *const staff = document().cursor().findStaff();
    if (shape == nullptr || staff == nullptr)
        return;
    chord::FingeringLibrary &library = Core::instance().fingeringLibrary();
    if (isOwn(*shape))
        library.removeUserShape(staff->tuning(), *shape);
    else
        library.addUserShape(staff->tuning(), *shape);
    _shownShapes.clear();
    showShapes();
    showButtons();
}

} // namespace zarn::editor
