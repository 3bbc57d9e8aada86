// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetGuitarFullTuning.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Track/ChordRetuning.h>
#include <ZarnCore/events/ZarnTrackEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <utility>

namespace zarn::cmd {

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
    const auto stringsOf = [](const Setting &one) {
        return ChordRetuning::Strings{one.tuning,
                                      {one.capoFret, one.partialCapoFret, one.partialCapoStrings}};
    };
    _chords.clear();
    _chordRetuning = std::make_unique<ChordRetuning>(stringsOf(_before), stringsOf(setting),
                                                     staff.fretCount(), _retuning);
    write(staff, setting);
    _isFingeredAnew = _retuning == Retuning::KeepPitches && fingering::canBeFingered(staff);
}

void SetGuitarFullTuning::restoreOthers()
{
    write(*findStaff(), _before);
    _chords.putBack(model());
}

void SetGuitarFullTuning::setChordKey(unsigned bar)
{
    const auto masterBar = model().masterTrack()->masterBar(bar);
    _chordRetuning->setKey(masterBar != nullptr ? masterBar->concertKeySignature()
                                                : KeySignature());
}

/// Bars are entered also when it is only tried out whether notes can move.
void SetGuitarFullTuning::enterBar(const Bar &bar)
{
    if (_chordRetuning)
        setChordKey(bar.index());
}

void SetGuitarFullTuning::enterBeat(const BeatSpan &place, Beat &beat)
{
    if (beat.hasDetails() && !beat.chord().isEmpty()
        && _chords.set(beat, place, _chordRetuning->retuned(beat.chord())))
        touch(place);
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

/// Sets stand at no bar: they go as the first one does.
bool SetGuitarFullTuning::finish()
{
    setChordKey(0);
    Staff &staff = *findStaff();
    _chords.setSets(staff, _track, _chordRetuning->retuned(ChordsOfStaff::of(staff)));
    _chordRetuning.reset();
    fingering::FingeringOptions options;
    options.given = fingering::GivenStrings::Kept;
    if (_isFingeredAnew)
        refinger(staff, options);
    return true;
}

void SetGuitarFullTuning::announce()
{
    const auto track = static_cast<int>(_track);
    const auto staff = static_cast<int>(_staff);
    score().notify(this, evt::GuitarFullTuningChanged(track, staff));
    MoveNotes::announce();
    _chords.announce(score(), this);
}

} // namespace zarn::cmd
