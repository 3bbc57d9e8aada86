// SPDX-License-Identifier: MIT
#include "panels/FretboardPanel.h"

#include "document/Document.h"
#include "panels/NeckView.h"
#include "panels/PitchText.h"

#include <ZarnCore/fingering/ZarnStaffFrets.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/ZarnFretting.h>
#include <ZarnCore/scales/ZarnScale.h>

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace zarn::editor {
namespace {

constexpr int mostFrets = 24;

Neck neckOf(const Staff &staff)
{
    Neck neck;
    for (const int pitch : staff.tuning().midiNumbers())
        neck.openStrings << pitchText(pitch, prefersFlats(staff.tuning()));
    neck.capo = static_cast<int>(staff.capoFret());
    neck.lastFret = std::min(static_cast<int>(staff.fretCount()) - neck.capo, mostFrets);
    neck.firstFrets.assign(staff.tuning().stringCount(), 1);
    if (staff.hasShortDroneString() && !neck.firstFrets.empty())
        neck.firstFrets[0] = GuitarTuning::droneFret + 1;
    return neck;
}

} // namespace

FretboardPanel::FretboardPanel(const ActionContext &context)
    : Panel(context), _neck(new NeckView), _tonic(new QComboBox), _scale(new QComboBox)
{
    auto *const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    auto *const choice = new QHBoxLayout;
    auto *const caption = new QLabel(tr("&Scale:"));
    caption->setBuddy(_tonic);
    choice->addWidget(caption);
    choice->addWidget(_tonic);
    choice->addWidget(_scale);
    choice->addStretch();
    all->addLayout(choice);
    all->addWidget(_neck, 1);

    _neck->setAccessibleName(tr("Fretboard"));
    _neck->setToolTip(tr("Click a place to write it; arrow keys and Return do the same"));
    _tonic->setAccessibleName(tr("Tonic of the scale"));
    _tonic->addItem(tr("None"));
    for (const char *const name : {"C", "C#", "Db", "D", "D#", "Eb", "E", "F", "F#", "Gb", "G",
                                   "G#", "Ab", "A", "A#", "Bb", "B"})
        _tonic->addItem(PitchClass::fromString(QLatin1String(name)).symbol(), QLatin1String(name));
    _scale->setAccessibleName(tr("Kind of scale"));
    for (const scale::ScaleKind &kind : scale::ScaleKind::all())
        _scale->addItem(
            QString::fromUtf8(kind.name().data(), static_cast<int>(kind.name().size())));
    connect(_tonic, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this] { follow(); });
    connect(_scale, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this] { follow(); });
    connect(_neck, &NeckView::chosen, this, &FretboardPanel::write);
}

FretboardPanel::~FretboardPanel() = default;

void FretboardPanel::follow()
{
    const ScoreModelIndex &place = document().cursor();
    const Staff *const staff = place.findStaff();
    const bool isFretted = staff != nullptr && staff->isFretted();
    _scale->setEnabled(isFretted && _tonic->currentIndex() > 0);
    _neck->setNeck(isFretted ? neckOf(*staff) : Neck());
    std::vector<NeckMark> marks;
    if (isFretted) {
        addScale(marks);
        addNotes(marks);
        // Along with the cursor, but not back to it after each note that is written here.
        const auto string = static_cast<int>(place.noteString());
        if (string != _cursorString)
            _neck->setCurrentString(string);
        _cursorString = string;
    }
    _neck->setMarks(std::move(marks));
}

void FretboardPanel::addScale(std::vector<NeckMark> &marks) const
{
    const QString tonic = _tonic->currentData().toString();
    if (tonic.isEmpty() || _scale->currentIndex() < 0)
        return;
    const scale::Scale scale(
        PitchClass::fromString(tonic),
        scale::ScaleKind::all()[static_cast<std::size_t>(_scale->currentIndex())]);
    const fingering::StaffFrets frets(*document().cursor().findStaff());
    const auto tones = scale.tones();
    for (int string = 0; string < frets.stringCount(); ++string)
        for (int fret = 0; fret <= mostFrets; ++fret) {
            const int pitch = frets.pitch(string, fret);
            const auto found =
                std::find_if(tones.begin(), tones.end(), [pitch](const PitchClass &tone) {
                    return pitch >= 0 && tone.tone() == Tone(pitch);
                });
            if (found == tones.end())
                continue;
            const auto kind =
                found == tones.begin() ? NeckMark::Kind::Tonic : NeckMark::Kind::ScaleTone;
            marks.push_back({string, fret, kind, found->symbol()});
        }
}

void FretboardPanel::addNotes(std::vector<NeckMark> &marks) const
{
    const ScoreModelIndex &place = document().cursor();
    const Beat *const beat = place.findBeat();
    if (beat == nullptr)
        return;
    for (const auto &note : beat->notes()) {
        if (note->string() < 0 || note->fret() < 0)
            continue;
        const int pitch = writtenPitch(*place.findStaff(), note->string(), note->fret());
        const QString name =
            pitch < 0 ? QString() : PitchClass::fromPitch(pitch, prefersFlats(place)).symbol();
        marks.push_back({note->string(), note->fret(), NeckMark::Kind::Note, name});
    }
}

void FretboardPanel::write(int string, int fret)
{
    const ScoreModelIndex place = document().cursor();
    const Staff *const staff = place.findStaff();
    if (staff == nullptr || !staff->isFretted())
        return;
    const Beat *const beat = place.findBeat();
    const auto isIt = [&](const auto &note) {
        return note->string() == string && note->fret() == fret;
    };
    const bool isThere =
        beat != nullptr && std::any_of(beat->notes().begin(), beat->notes().end(), isIt);
    if (isThere) {
        // The same place once more takes the note off, when it is the only one.
        if (beat->notes().size() == 1)
            document().edit(tr("Rest"), [&](Score &score) {
                return score.setNoteRest(ScoreModelRange(place));
            });
        return;
    }
    document().edit(tr("Fret %1").arg(fret), [&](Score &score) {
        return (place.isBeatValid() || score.createBeat(place, document().entry().rhythm))
            && score.setStringedNote(place, string, fret);
    });
}

} // namespace zarn::editor
