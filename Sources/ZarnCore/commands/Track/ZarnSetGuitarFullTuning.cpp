// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetGuitarFullTuning.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/events/ZarnTrackEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <utility>

namespace zarn::cmd {

namespace {

bool isOnStaff(const ChordDiagram &diagram, const Staff &staff)
{
    return diagram.frets.size() == staff.tuning().stringCount();
}

/// The diagrams that fit the strings of a staff.
std::vector<ChordDiagram> fitting(const std::vector<ChordDiagram> &diagrams, const Staff &staff)
{
    std::vector<ChordDiagram> found;
    for (const ChordDiagram &diagram : diagrams)
        if (isOnStaff(diagram, staff))
            found.push_back(diagram);
    return found;
}

} // namespace

SetGuitarFullTuning::SetGuitarFullTuning()
    : MoveNotes(QStringLiteral("SetGuitarFullTuning"), {Homeless::WithoutPlace, Announced::Changes})
{
}
SetGuitarFullTuning::~SetGuitarFullTuning() = default;

bool SetGuitarFullTuning::init(Score *score, unsigned track, unsigned staff,
                               const GuitarTuning &tuning, unsigned capoFret, Retuning retuning)
{
    ZARN_ASSERT_IN("zarn::cmd::SetGuitarFullTuning::init", score != NULL);
    QStringList pitches;
    for (const int pitch : tuning.midiNumbers())
        pitches.append(QString::number(pitch));
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("StaffIndex"), QString::number(staff));
    addArg(QStringLiteral("Tuning"), pitches.join(QLatin1Char(' ')));
    addArg(QStringLiteral("Capo"), QString::number(capoFret));
    addArg(QStringLiteral("Type"),
           retuning == Retuning::KeepFrets ? QStringLiteral("KeepFrets")
                                           : QStringLiteral("KeepPitches"));
    _track = track;
    _staff = staff;
    _setting.tuning = tuning;
    _setting.capoFret = capoFret;
    _retuning = retuning;
    return tuning.stringCount() <= MostStrings && tuning.storedMidiOffset() >= -highestKey
        && tuning.storedMidiOffset() <= highestKey && prepareAll(score, track, staff);
}

Staff *SetGuitarFullTuning::findStaff() const
{
    return model().tracks()[_track]->staves()[_staff].get();
}

bool SetGuitarFullTuning::isPossible() const
{
    return _setting.capoFret <= findStaff()->fretCount();
}

SetGuitarFullTuning::Setting SetGuitarFullTuning::settingOf(const Staff &staff)
{
    return {staff.tuning(), staff.capoFret(), staff.partialCapoFret(),
            staff.partialCapoStringFlags()};
}

void SetGuitarFullTuning::write(Staff &staff, const Setting &setting)
{
    staff.setTuning(setting.tuning);
    staff.setCapoFret(static_cast<std::uint8_t>(setting.capoFret));
    staff.setPartialCapoFret(static_cast<std::uint8_t>(setting.partialCapoFret));
    staff.setPartialCapoStringFlags(setting.partialCapoStrings);
}

void SetGuitarFullTuning::begin()
{
    _fretboardBefore.emplace(*findStaff());
}

void SetGuitarFullTuning::changeOthers()
{
    Staff &staff = *findStaff();
    _before = settingOf(staff);
    Setting setting = _setting;
    if (setting.tuning.stringCount() == _before.tuning.stringCount()) {
        setting.partialCapoFret = _before.partialCapoFret;
        setting.partialCapoStrings = _before.partialCapoStrings;
    }
    write(staff, setting);
    _isFingeredAnew = _retuning == Retuning::KeepPitches && fingering::canBeFingered(staff);
    dropDiagrams(staff);
}

void SetGuitarFullTuning::dropDiagrams(Staff &staff)
{
    _diagramsBefore.reset();
    DiagramSets sets = {fitting(staff.diagramCollection(), staff),
                        fitting(staff.diagramWorkingSet(), staff)};
    if (sets.collection.size() == staff.diagramCollection().size()
        && sets.workingSet.size() == staff.diagramWorkingSet().size())
        return;
    _diagramsBefore = {staff.diagramCollection(), staff.diagramWorkingSet()};
    staff.setDiagramCollection(std::move(sets.collection));
    staff.setDiagramWorkingSet(std::move(sets.workingSet));
}

void SetGuitarFullTuning::restoreOthers()
{
    Staff &staff = *findStaff();
    write(staff, _before);
    if (_diagramsBefore) {
        staff.setDiagramCollection(_diagramsBefore->collection);
        staff.setDiagramWorkingSet(_diagramsBefore->workingSet);
    }
}

bool SetGuitarFullTuning::takes(const MarkedPlace &, const Note &note) const
{
    return note.string() != Note::Unset;
}

/// The place and pitch of a note on the new strings. The pitch of a note may differ from that of
/// its fret, by an octave in many editions: it moves along.
std::optional<NoteMove> SetGuitarFullTuning::moved(const MarkedPlace &place, const Note &,
                                                   const NotePosition &from) const
{
    NoteMove move = {from, std::nullopt};
    NotePosition &to = move.to;
    const int pitchBefore = _fretboardBefore->pitch(from.string, from.fret);
    if (_isFingeredAnew && from.midi != Note::Unset && from.midi == pitchBefore) {
        if (fretboard().pitch(from.string, from.fret) != pitchBefore) {
            to.string = Note::Unset;
            to.fret = Note::Unset;
        }
        return move;
    }
    if (_retuning == Retuning::KeepFrets && place.isFretted && from.midi != Note::Unset) {
        const int pitch = fretboard().pitch(from.string, from.fret);
        const int midi = from.midi + pitch - pitchBefore;
        if (pitch >= 0 && pitchBefore >= 0 && midi >= 0 && midi <= highestKey) {
            if (midi != from.midi)
                to.spelling = NotePosition::NoSpelling;
            to.midi = static_cast<std::int8_t>(midi);
            return move;
        }
    }
    const int pitch = pitchBefore >= 0 ? pitchBefore : from.midi;
    const int fret = place.isFretted ? fretboard().fret(from.string, pitch) : -1;
    if (fret >= 0)
        to.fret = static_cast<std::int8_t>(fret);
    else
        move.soughtPitch = pitch;
    return move;
}

bool SetGuitarFullTuning::finish()
{
    fingering::FingeringOptions options;
    options.given = fingering::GivenStrings::Kept;
    if (_isFingeredAnew)
        refinger(*findStaff(), options);
    return true;
}

void SetGuitarFullTuning::announce()
{
    const auto track = static_cast<int>(_track);
    const auto staff = static_cast<int>(_staff);
    score().notify(this, evt::GuitarFullTuningChanged(track, staff));
    MoveNotes::announce();
    if (_diagramsBefore)
        score().notify(this, evt::ChordsChanged(track, staff));
}

} // namespace zarn::cmd
